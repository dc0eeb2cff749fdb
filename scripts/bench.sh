# shellcheck shell=bash
# Part of ./dev: measuring.

# Measures into a file, and makes tables of that. The figures in docs/ are those of a whole run.
command_bench() {
    local measure=(--benchmark_repetitions=7 --benchmark_min_time=0.02) figures=() whole=1 update=0
    while (($# > 0)); do
        case "$1" in
            --quick)
                measure=(--largest=20000 --benchmark_repetitions=3 --benchmark_min_time=0.005 "${measure[@]:2}")
                whole=0
                ;;
            --filter)
                (($# >= 2)) || fail "--filter takes a regular expression"
                measure+=(--benchmark_filter="$2")
                whole=0
                shift
                ;;
            --update-docs)
                figures+=(--page docs/performance.md --plot docs/growth.svg)
                update=1
                ;;
            *) fail "bench does not know '$1'" ;;
        esac
        shift
    done
    ((whole || !update)) || fail "docs/ takes the figures of a whole run only"
    build bench

    local results=build/bench/results
    measure+=(--benchmark_enable_random_interleaving=true --benchmark_display_aggregates_only=true
        --benchmark_out="$results/times.json" --benchmark_out_format=json)
    mkdir -p "$results"
    say "Measuring; a whole run takes some minutes"
    show build/bench/bin/reportbase_bench "${measure[@]}"
    build/bench/bin/reportbase_bench "${measure[@]}" >"$results/times.txt" 2>&1 ||
        fail "$(tail -n 1 "$results/times.txt")"
    show build/bench/bin/reportbase_memory
    build/bench/bin/reportbase_memory >"$results/memory.json"
    say "Comparing"
    run python3 bench/figures.py "$results/times.json" "$results/memory.json" --json "$results/ratios.json" "${figures[@]}"
    say "Times: $results/times.json, ratios: $results/ratios.json"
}
