# shellcheck shell=bash
# Part of ./dev: measuring.

# Measures into files, and makes tables of them. The figures in docs/ are those of whole runs.
command_bench() {
    if [[ ${1:-} == --python ]]; then
        shift
        bench_python "$@"
        return
    fi
    local measure=(--benchmark_repetitions=7 --benchmark_min_time=0.02) figures=() files=() whole=1 update=0
    local library=1 tool=1
    while (($# > 0)); do
        case "$1" in
            --quick)
                measure=(--largest=20000 --benchmark_repetitions=3 --benchmark_min_time=0.005 "${measure[@]:2}")
                files+=(--files 5000 --coordinates 20000 --repetitions 3)
                whole=0
                ;;
            --filter)
                (($# >= 2)) || fail "--filter takes a regular expression"
                measure+=(--benchmark_filter="$2")
                whole=0
                tool=0
                shift
                ;;
            --library) tool=0 ;;
            --tool) library=0 ;;
            --update-docs) update=1 ;;
            *) fail "bench does not know '$1'" ;;
        esac
        shift
    done
    ((whole || !update)) || fail "docs/ takes the figures of a whole run only"
    ((library || tool)) || fail "--library and --tool leave nothing to measure"
    if ((update)); then
        figures+=(--page docs/performance.md --plot docs/growth.svg)
        files+=(--page docs/performance.md)
    fi
    build bench
    mkdir -p build/bench/results
    if ((library)); then
        bench_library
    fi
    if ((tool)); then
        bench_tool
    fi
}

# The library beside others; with the settings of command_bench.
bench_library() {
    local results=build/bench/results
    measure+=(--benchmark_enable_random_interleaving=true --benchmark_display_aggregates_only=true
        --benchmark_out="$results/times.json" --benchmark_out_format=json)
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

# What the tool does with many files, beside the library alone; with the settings of command_bench.
bench_tool() {
    local results=build/bench/results
    build release
    say "Measuring the tool; a whole run takes some minutes"
    run python3 bench/manyfiles.py build/release/bin/reporttool build/bench/bin/reportbase_manyfiles \
        build/bench/bin/reportbase_launch --json "$results/files.json" "${files[@]}"
    say "Figures: $results/files.json"
}
