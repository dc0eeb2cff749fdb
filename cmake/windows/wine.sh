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
[ -p /dev/stdout ] && [ /dev/stdout -ef /dev/stderr ] || exec /usr/lib/wine/wine64 "$@"

# Who reads both outputs waits for their end. A service of Windows that the program is the first to need holds them open
# for minutes, so that it gets a file instead.
output="$(mktemp)"
trap 'rm -f "$output"' EXIT
result=0
/usr/lib/wine/wine64 "$@" >"$output" 2>&1 || result=$?
cat "$output"
exit $result
