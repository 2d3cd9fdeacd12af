#!/usr/bin/env bash
# The library shows three classes and nothing else: whatever more is visible becomes part of what other
# companies build against. usage: exported_classes.sh LIBRARY SONAME
set -euo pipefail

library=$1
soname=$2

symbols=$(nm --dynamic --defined-only --demangle "$library" | sed -E 's/^[0-9a-f]+ [A-Za-z] //')
others=$(grep -vE '^((vtable|typeinfo|typeinfo name) for |non-virtual thunk to )?(GrProductTreeWrapper|productTree::ProductTreeItemData|productTree::ColumnInfo)(::|$)' \
    <<<"$symbols" || true)
if [ -n "$others" ]; then
    printf 'also visible:\n%s\n' "$others"
    exit 1
fi
for class in GrProductTreeWrapper productTree::ProductTreeItemData productTree::ColumnInfo; do
    if ! grep -qF "$class::${class##*::}(" <<<"$symbols"; then
        echo "no constructor of $class is visible"
        exit 1
    fi
done
if ! grep -qF "[$soname]" <<<"$(readelf --dynamic "$library")"; then
    echo "the library's name is not $soname"
    exit 1
fi
