#!/usr/bin/env bash
# makewine.sh WORK PREFIX
#
# Makes a Windows for Wine to run programs in, as WORK/PREFIX.
set -euo pipefail

export WINEPREFIX="$1/$2" WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=d;mshtml=d'
unset DISPLAY
# A folder of the user's would be linked to from this Windows.
export HOME="$1/home"
mkdir -p "$HOME"
/usr/lib/wine/wine64 wineboot --init
/usr/lib/wine/wineserver64 -w
rm -rf "$WINEPREFIX/drive_c/users"/*/Temp/*
