#!/usr/bin/env bash
# completion.sh SHELL FOLDER PROGRAM: types the lines of completions.txt into an interactive shell of this kind on a terminal of
# its own, with the completion in FOLDER, and compares the arguments that the program is started with.
set -euo pipefail

shell="$1"
folder="$2"
program="$3"
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
if ! command -v "$shell" >/dev/null; then
    printf 'not run: %s is not installed\n' "$shell"
    exit 0
fi

scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
export HOME="$scratch" RESULT="$scratch/arguments" TERM=dumb
mkdir "$scratch/work"
cd "$scratch/work"
touch lake.xml
mkdir reports

# In the place of the program stands a function that tells its arguments.
case "$shell" in
    bash)
        words=(bash --norc --noprofile -i)
        setup="$program() { printf '%s\n' \"\$*\" >>\"\$RESULT\"; }; . '$folder/bash-completion/completions/$program'"
        ;;
    zsh)
        words=(zsh -f -i)
        # A path with brackets is no pattern for files here.
        setup="setopt no_nomatch; $program() { print -r -- \"\$*\" >>\$RESULT }; fpath=('$folder/zsh/site-functions' \$fpath); autoload -U compinit; compinit -u -D"
        ;;
    fish)
        words=(fish --no-config -i)
        setup="function $program; string join ' ' -- \$argv >>\$RESULT; end; source '$folder/fish/vendor_completions.d/$program.fish'"
        ;;
esac

# Each line is typed when the one before it has been taken, as people do.
type_lines() {
    local count=0 line
    printf '%s\n' "$setup"
    while IFS= read -r line; do
        printf '%b\n' "${line//<TAB>/\\t}"
        count=$((count + 1))
        wait_for "$count"
    done
    printf 'exit\n'
}

wait_for() {
    local tenths
    for ((tenths = 0; tenths < 300; ++tenths)); do
        [[ ! -f $RESULT || $(wc -l <"$RESULT") -lt $1 ]] || return 0
        sleep 0.1
    done
    printf 'nothing came of line %s\n' "$1" >&2
    exit 1
}

sed -n "s/^typed  *reporttool/$program/p" "$here/completions.txt" >"$scratch/typed"
sed -n 's/^starts  *//p' "$here/completions.txt" >"$scratch/expected"
type_lines <"$scratch/typed" | script --quiet --return --command "$(printf '%q ' "${words[@]}")" "$scratch/terminal" >/dev/null ||
    { cat "$scratch/terminal"; exit 1; }
diff "$scratch/expected" "$RESULT" || { cat "$scratch/terminal"; exit 1; }
