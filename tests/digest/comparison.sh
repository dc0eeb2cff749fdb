#!/usr/bin/env bash
# comparison.sh REPORT_DIGEST
#
# Whether ./dev platforms tells digests that agree from digests that don't, and says what differs where.
set -euo pipefail

program="$1"
# shellcheck source=/dev/null
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/platforms.sh"

folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT

wrong() {
    printf 'comparison.sh: %s\n' "$*" >&2
    exit 1
}

"$program" --count 20 >"$folder/here.digest"
cp "$folder/here.digest" "$folder/there.digest"
said="$(compare_digests "$folder" here there)" || wrong "equal digests differ: $said"
[[ -z $said ]] || wrong "there is something to say about equal digests: $said"

"$program" --count 20 --fault body 3 >"$folder/there.digest"
printf '%q --count 20' "$program" >"$folder/here.command"
printf '%q --count 20 --fault body 3' "$program" >"$folder/there.command"
if said="$(compare_digests "$folder" here there)"; then
    wrong 'a wrong bit goes unnoticed'
fi
fourth="$("$program" --count 20 --each body | sed -n 's/^3 [0-9a-f]* //p')"
[[ $said == "there writes something else than here in the form body, first of $fourth" ]] ||
    wrong "a wrong bit is told so: $said"

# Without the commands there is no object to tell of. What was written elsewhere and is cut off is not equal to all of it.
rm "$folder"/*.command
"$program" --count 20 >"$folder/whole.digest"
head -n 5 "$folder/whole.digest" >"$folder/there.digest"
if said="$(compare_digests "$folder" here there)"; then
    wrong 'a digest that is cut off goes unnoticed'
fi
[[ $said == *"in the form raw"* ]] || wrong "a digest that is cut off is told so: $said"
