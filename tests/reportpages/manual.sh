#!/usr/bin/env bash
# manual.sh GENERATOR REPORTTOOL FOLDER VERSION: formats the manual pages in FOLDER and looks for what they have to say.
set -euo pipefail

generator="$1"
tool="$2"
folder="$3"
version="$4"
program="$(basename "$tool")"
if ! command -v groff >/dev/null; then
    printf 'not run: groff is not installed\n'
    exit 0
fi

scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT

fail() {
    printf 'pages: %s\n' "$*" >&2
    exit 1
}

# The page as one reads it, in one line, without bold and italic.
formatted() {
    groff -man -ww -Tutf8 -K utf8 -P-c -P-b -P-u "$1" 2>"$scratch/warnings" | tr -s ' \n' ' '
    [[ ! -s $scratch/warnings ]] || fail "$1: $(cat "$scratch/warnings")"
}

# expect_in PAGE TEXT WORDS...: they stand there.
expect_in() {
    local page="$1" text="$2" words
    shift 2
    for words in "$@"; do
        [[ $text == *"$words"* ]] || fail "$page doesn't say '$words' but $text"
    done
}

# --- A page for each command, and with all of its options and arguments

mapfile -t commands < <("$tool" --help | sed -n 's/^  \([a-z][a-z]*\) .*  .*/\1/p;s/^  \(settings\) .*/\1/p' | sort -u)
((${#commands[@]} >= 11)) || fail "the help names only ${commands[*]}"
for command in "${commands[@]}"; do
    page="$folder/man/man1/$program-$command.1"
    text="$(formatted "$page")"
    expect_in "$page" "$text" "NAME $program-$command - " "SYNOPSIS $program [options] $command" DESCRIPTION \
        "EXIT STATUS 0 " " 2 " "OPTIONS -h, --help Show this help." "EXAMPLES $program $command" "SEE ALSO $program(1)" \
        "$program $version"
    mapfile -t options < <("$tool" "$command" --help | sed -n 's/^  \(-.*[^ ]\)  .*/\1/p')
    ((${#options[@]} > 0)) || fail "the help of $command names no options"
    expect_in "$page" "$text" "${options[@]%%  *}"
done

page="$folder/man/man1/$program.1"
text="$(formatted "$page")"
expect_in "$page" "$text" "NAME $program - " "EXIT STATUS 0 all is good 1 " \
    "2 a file cannot be read or written or the command line is wrong Of several files" "ENVIRONMENT LC_ALL" \
    "-v, --version" "${commands[@]/#/$program-}"
expect_in convert "$(formatted "$folder/man/man1/$program-convert.1")" "FORMS xml the report's XML element in UTF-8 plain"

# No page is there for what is no program or command.
for page in "$folder"/man/man1/*; do
    formatted "$page" >/dev/null
    name="$(basename "$page" .1)"
    [[ -x $(dirname "$tool")/$name || " ${commands[*]} " == *" ${name#"$program-"} "* ]] || fail "what is $page?"
done

# --- Whenever it is made, it is the same

"$generator" "$scratch/again" "$program" "$version"
find "$scratch/again" -type f -printf '%P\n' | sort >"$scratch/files"
(($(wc -l <"$scratch/files") == ${#commands[@]} + 4)) || fail "other files than expected: $(cat "$scratch/files")"
while read -r file; do
    cmp "$scratch/again/$file" "$folder/$file"
done <"$scratch/files"
! grep -rE '\b(19|20)[0-9]{2}-?[01][0-9]' "$folder/man" || fail "a page bears a date"
