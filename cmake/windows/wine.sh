#!/bin/sh
# wine.sh PROGRAM [ARGUMENT...]
#
# Runs a program for Windows, without a display and without Wine's own remarks, in a Windows of its own that ./dev makes
# below build/.
here="$(cd "$(dirname "$0")" && pwd)"
export WINEPREFIX="${REPORTGENERATOR_WINEPREFIX:-$(cd "$here/../.." && pwd)/build/windows-parts/wine}"
export WINEDEBUG=-all
# Without a display a message box could only be waited for.
export WINEDLLOVERRIDES="winemenubuilder.exe=d;mscoree=d;mshtml=d"
unset DISPLAY
exec /usr/lib/wine/wine64 "$@"
