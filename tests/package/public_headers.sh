#!/usr/bin/env bash
# Our host and program live by what is installed, as any other host does: of the library they include
# the exported headers alone. usage: public_headers.sh SOURCE_FOLDER EXPORTED_HEADER...
set -euo pipefail

cd "$1"
shift
wrong=$(grep -rnE '#include "(resources|columns|sorting|cells|items|control)/' platform desktop |
    grep -vF "$(printf '"%s"\n' "$@")" || true)
if [ -n "$wrong" ]; then
    printf 'not installed:\n%s\n' "$wrong"
    exit 1
fi
