# shellcheck shell=bash
# Part of ./dev: the interface of the libraries beside that of the last release.


command_abi() {
    local update=()
    case "${1:-}" in
        '') ;;
        --update) update=(--update) ;;
        --self-test)
            need "${build_packages[@]}" python3 abigail-tools binutils
            say "Testing what is found"
            run python3 tests/abi/interfacetest.py
            return
            ;;
        *) fail "abi knows only --update and --self-test" ;;
    esac
    (($# <= 1)) || fail "abi takes one option"
    need python3 abigail-tools binutils

    local qt preset suffix folder library verdict=0
    for qt in 5 6; do
        preset=dev suffix=
        if ((qt == 6)); then
            preset=qt6 suffix=-qt6
        fi
        build "$preset" --target reportbase wendbase reportmodels
        for folder in framework/reportgenerator/reportbase framework/reportgenerator/models framework/wendbase; do
            library=${folder##*/}
            [[ $library != models ]] || library=reportmodels
            say "Comparing $library for Qt $qt"
            run python3 scripts/interface.py --library "build/$preset/$folder/lib$library$suffix.so" \
                --headers "$folder" --description "$folder/interface-qt$qt.txt" --version "$(project_version)" \
                "${update[@]}" || verdict=$?
        done
    done
    ((verdict == 0)) || fail "the interface is not that of the last release; see docs/compatibility.md"
}
