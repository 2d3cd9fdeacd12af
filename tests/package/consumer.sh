#!/usr/bin/env bash
# Installs the library and builds a host of somebody else's against it, outside of this tree.
# The host prints its panel three times: filled, edited, and changed from outside.
# usage: consumer.sh BUILD_DIR CONSUMER_DIR WORK_DIR CXX
set -euo pipefail

build=$1
consumer=$2
work=$3
cxx=$4

rm -rf "$work"
cmake --install "$build" --prefix "$work/prefix" >"$work.log"
cmake -G Ninja -S "$consumer" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/prefix" \
    -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="${CONSUMER_CXX_FLAGS:-}"
cmake --build "$work/build" --parallel 2
"$work/build/consumer" | diff "$consumer/expected.txt" -
