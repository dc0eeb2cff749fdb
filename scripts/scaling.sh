# shellcheck shell=bash
# Part of ./dev: whether reading takes time in proportion to its input.

# So many times the instructions of an input may take one that is twice as large.
largest_ratio=2.2

instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null '--toggle-collect=*Measured*' \
        build/dev/bin/shapes "$1" "$2" 2>&1 | sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}

command_scaling() {
    local filter="${1:-.}" name pieces once twice bad=0
    (($# <= 1)) || fail "scaling takes one regular expression"
    build dev --target shapes
    need valgrind
    say "Counting instructions of inputs and of twice as large ones"
    while read -r name pieces; do
        [[ $name =~ $filter ]] || continue
        once="$(instructions "$name" "$pieces")"
        twice="$(instructions "$name" $((2 * pieces)))"
        awk -v name="$name" -v once="$once" -v twice="$twice" -v largest="$largest_ratio" 'BEGIN {
            grows = once == 0 || twice > largest * once
            printf "%-28s %12d %12d  %.2f%s\n", name, once, twice, once ? twice / once : 0, grows ? "  grows faster" : ""
            exit grows
        }' || bad=1
    done < <(build/dev/bin/shapes)
    ((bad == 0)) || fail "time grows faster than the input"
}
