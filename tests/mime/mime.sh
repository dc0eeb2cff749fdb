#!/usr/bin/env bash
# mime.sh desktop|file FOLDER REPORTTOOL TYPEOF EXAMPLES: has reports and what looks like them named by the package file for
# desktops or by the magic for file(1) in FOLDER, and compares.
set -euo pipefail

kind="$1"
folder="$2"
tool="$3"
type_of="$4"
examples="$5"

need() {
    command -v "$1" >/dev/null || { printf 'not run: %s is not installed\n' "$1"; exit 0; }
}

scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/files"
cd "$scratch/files"

# --- The files, and what they are

binary=application/x-reportgenerator-report
xml=application/x-reportgenerator-report+xml

# A text of UTF-16 behind its size.
text() {
    printf '\0\0\0'"\\x$(printf '%02x' $((2 * ${#1})))"
    sed 's/./\x00&/g' <<<"$1" | tr -d '\n'
}

{ text IRGObject && text ReportBase && printf '\0\0\0\1\0\0\0\0'; } >plain
{ printf '\0\0\0\x36' && cat plain; } >plainfile
{ text IRGObject && text Frequency && printf '\0\0\0\1\0\0\0\0'; } >frequency
{ text IRGObjectX && text ReportBase && printf '\0\0\0\1\0\0\0\0'; } >marker
for report in "$examples"/*.xml; do
    "$tool" convert "$report" compressed --to compressed
    "$tool" convert "$report" file --to file
    "$tool" convert "$report" compressedfile --to file --level 9
    "$tool" convert "$report" written --to xml
    cp "$report" example
done
printf '\n<ReportBase/>' >linefeed
printf '\xef\xbb\xbf<ReportBase\n/>' >mark
printf '<?xml version="1.0"?>\n<mission><ReportBase Version="1.0"></ReportBase></mission>' >within
printf '<?xml version="1.0"?>\n<ReportBaseline/>' >othername
printf '<?xml version="1.0"?>\n<mission/>' >otherxml
printf '#!/bin/sh\necho "<ReportBase>"\n' >script
printf 'A page about <ReportBase> and others.\n' >page
iconv -f UTF-8 -t UTF-16LE linefeed >unmarked16le
iconv -f UTF-8 -t UTF-16 within >marked16
iconv -f UTF-8 -t UTF-16BE within >unmarked16be
cp within named.xml

# expected BINARY... XML...: the lines of all files
expect() {
    local type="$1" name
    shift
    for name in "$@"; do
        printf '%s %s\n' "$name" "$type" >>"$scratch/expected"
    done
}

expect "$binary" plain plainfile compressed file compressedfile
expect "$xml" written example linefeed mark within
: >"$scratch/seen"

# Files of other kinds are none of ours, whatever they are called.
others=(frequency marker othername otherxml script page)
only_ours() {
    sed -E "s|^(.*) application/x-reportgenerator.*|&|; t; s|^([^ ]*) .*|\1 other|" | sort
}
expect other "${others[@]}"

case "$kind" in
    desktop)
        need gio
        need update-mime-database
        # UTF-16 is known here, but a name that ends in .xml says enough to a desktop.
        expect "$xml" unmarked16be marked16
        expect other named.xml unmarked16le
        export XDG_DATA_HOME="$scratch/data" XDG_DATA_DIRS="$scratch/nothing"
        mkdir -p "$XDG_DATA_HOME/mime/packages"
        cp /usr/share/mime/packages/freedesktop.org.xml "$folder/reportgenerator.xml" "$XDG_DATA_HOME/mime/packages"
        PKGSYSTEM_ENABLE_FSYNC=0 update-mime-database "$XDG_DATA_HOME/mime" >"$scratch/told" 2>&1
        # It tells that the folder is not among those of the system, and nothing of the files.
        ! grep -iE 'warn|error|reportgenerator' "$scratch/told"
        sort -o "$scratch/expected" "$scratch/expected"
        for file in *; do
            printf '%s %s\n' "$file" "$(gio info -a standard::content-type "$file" | sed -n 's/.*content-type: //p')"
        done | only_ours | diff "$scratch/expected" -
        "$type_of" * | only_ours | diff "$scratch/expected" -
        ;;
    file)
        need file
        expect "$xml" named.xml
        expect other unmarked16be marked16 unmarked16le
        sort -o "$scratch/expected" "$scratch/expected"
        magic="$folder/magic:/usr/share/misc/magic"
        file --mime-type --no-pad --separator '' -m "$magic" -- * | only_ours | diff "$scratch/expected" -
        diff - <(file --no-pad --separator '' -m "$magic" plain compressed plainfile compressedfile within) <<'TEXT'
plain radio-monitoring report, plain
compressed radio-monitoring report, compressed
plainfile radio-monitoring report, binary file (plain)
compressedfile radio-monitoring report, binary file (compressed)
within radio-monitoring report, XML
TEXT
        # It compiles without a word.
        cd "$scratch"
        file -C -m "$folder/magic" >"$scratch/told" 2>&1
        [[ ! -s $scratch/told && -s magic.mgc ]]
        ;;
esac
