#!/usr/bin/env bash
# buildgoogletest.sh WORK PREFIX
#
# Builds the distribution's GoogleTest for 64-bit Windows in the empty folder WORK; the outcome stands in WORK/PREFIX in
# the end.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
work="$1"
cmake -S /usr/src/googletest -B "$work/build" -G Ninja --log-level=WARNING \
    "-DCMAKE_TOOLCHAIN_FILE=$here/toolchain.cmake" -DCMAKE_BUILD_TYPE=Release "-DCMAKE_INSTALL_PREFIX=$work/$2"
cmake --build "$work/build" -- --quiet
cmake --install "$work/build" >/dev/null
