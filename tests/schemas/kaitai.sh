#!/usr/bin/env bash
# kaitai.sh LANGUAGE TOOLS DESCRIPTION WRITTEN COUNT SCRATCH: makes a reader of the description for a language and has it take
# apart what written_objects has written. TOOLS is the folder where `./dev test --schemas` installs compiler and runtimes.
set -euo pipefail

language="$1"
tools="$2"
description="$3"
written="$4"
count="$5"
scratch="$6"
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"

if [[ ! -d $tools/node_modules/kaitai-struct-compiler ]]; then
    printf 'not run: the compiler is not installed, which ./dev test --schemas does\n'
    exit 0
fi

rm -rf "$scratch"
NODE_PATH="$tools/node_modules" node "$here/compile.js" "$description" "$language" "$scratch"
case "$language" in
    python)
        PYTHONPATH="$tools/python:$scratch" PYTHONDONTWRITEBYTECODE=1 python3 "$here/kaitaireader.py" "$written" \
            "$here/kaitaireader.txt" "$count"
        ;;
    javascript)
        NODE_PATH="$tools/node_modules:$scratch" node "$here/kaitaireader.js" "$written" "$here/kaitaireader.txt" "$count"
        ;;
    *)
        printf 'no reader for %s\n' "$language" >&2
        exit 1
        ;;
esac
