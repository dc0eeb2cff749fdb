#!/bin/sh
# failshalfway.sh EMULATOR REPORTTOOL REPORT FOLDER
#
# Has reporttool replace a file where no file may grow beyond 512 bytes: that is told, and the old file stays alone.
set -eu

emulator="$1" reporttool="$2" report="$3" folder="$4"
rm -rf "$folder"
mkdir -p "$folder"
cd "$folder"
printf 'old content' >out

# The server of Wine must not be started with the limit: it needs larger files, and lives on for a moment.
"$emulator" cmd /c exit

code=0
(
    trap '' XFSZ
    ulimit -f 1
    exec "$emulator" "$reporttool" convert "$report" out --to xml
) >output 2>errors || code=$?
cat output errors

[ "$code" -eq 2 ]
[ ! -s output ]
grep -q '^reporttool: out: [^ ].*$' errors
[ "$(wc -l <errors)" -eq 1 ]
[ "$(cat out)" = 'old content' ]
[ "$(ls)" = "$(printf 'errors\nout\noutput')" ]
