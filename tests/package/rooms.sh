#!/usr/bin/env bash
# Each folder includes only what docs/architecture.md draws below it. Of the library our own host and
# program include what is installed, as any other host. usage: rooms.sh SOURCE_FOLDER EXPORTED_HEADER...
set -euo pipefail

cd "$1"
shift
exported=" $* "

# folder: what it may include besides itself
declare -A rooms=(
    [host]=""
    [resources]="host"
    [columns]="host resources"
    [sorting]="host columns"
    [cells]="host resources columns items"
    [columns/headers]="host resources columns cells items"
    [items]="host resources columns cells columns/headers"
    [control]="host resources columns sorting cells columns/headers items"
    [platform/values]="host"
    [platform/services]="host platform/values"
    [platform/view]="host platform/values platform/services exported"
    [platform/product/model]="host platform/values platform/services"
    [platform/product/index]="host platform/values platform/product/model"
    [platform/product/validation]="host platform/values platform/product/model platform/product/index"
    [platform/product/edits]="host platform/product/model platform/product/index"
    [platform/product/answers]="host platform/values platform/services platform/product/model platform/product/index platform/product/edits"
    [desktop/messages]="host platform/values"
    [desktop/store]="host platform/values platform/product desktop/messages"
    [desktop/import]="host platform/values platform/product/model desktop/messages"
    [desktop]="host platform exported desktop/messages desktop/store desktop/import desktop/preview desktop/books desktop/window"
    [desktop/preview]="host desktop desktop/import desktop/messages"
    [desktop/icons]="host platform/services"
    [desktop/editors]="host desktop/icons"
    [desktop/books]="host platform/services desktop/store desktop/editors"
    [desktop/dialogs]="platform/services desktop desktop/import desktop/editors desktop/icons desktop/books"
    [desktop/documents]="host platform/services platform/view desktop/icons desktop/preview"
    [desktop/help]=""
    [desktop/tree]="host platform/view exported desktop/icons desktop/editors"
    [desktop/window]="host platform desktop/icons desktop/editors desktop/books desktop/dialogs desktop/help desktop/preview desktop/tree desktop/import desktop desktop/documents"
)

found=0
while IFS=: read -r file include; do
    room=${file%/*}
    [[ $room == host/* ]] && room=host
    if [[ ! -v rooms[$room] ]]; then
        echo "$file: say in rooms.sh what $room may include"
        exit 1
    fi
    for allowed in "$room" ${rooms[$room]}; do
        if [[ $allowed == exported && $exported == *" $include "* ]] ||
            [[ $allowed != desktop && $include == "$allowed"/* ]] ||
            [[ $allowed == desktop && ${include%/*} == desktop ]]; then
            continue 2
        fi
    done
    echo "$file includes $include"
    found=1
done < <(grep -roE --include='*.h' --include='*.cpp' '#include "[^"]+"' \
    host resources columns sorting cells items control platform desktop | sed -E 's/:#include "(.*)"$/:\1/')
exit "$found"
