# shellcheck shell=bash
# Part of ./dev: every platform that can be had here, and whether they all write the same.

# Name, and the preset or what CMake is told: which compiler, which Qt, how optimised.
platform_rows=(
    'gcc-qt5-o0      preset dev'
    'gcc-qt5-o2      g++ 5 -O2'
    'gcc-qt5-lto     g++ 5 -O3 link-time'
    'gcc-qt6-o0      preset qt6'
    'gcc-qt6-o2      g++ 6 -O2'
    'gcc-qt6-lto     g++ 6 -O3 link-time'
    'clang-qt5-o0    clang++ 5 -O0'
    'clang-qt5-o2    preset clang'
    'clang-qt5-lto   clang++ 5 -O3 link-time'
    'clang-qt6-o0    clang++ 6 -O0'
    'clang-qt6-o2    clang++ 6 -O2'
    'clang-qt6-lto   clang++ 6 -O3 link-time'
    'windows         preset windows'
    'big-endian      preset big-endian'
)

platform_names() {
    printf '%s\n' "${platform_rows[@]}" | cut -d ' ' -f 1
}

# first_difference FOLDER FORM NAME NAME: the first object of which two platforms write something else in that form, found
# by the commands in FOLDER/NAME.command.
first_difference() {
    local folder="$1" form="$2" name
    for name in "${@:3}"; do
        bash -c "$(<"$folder/$name.command") --each $form" 2>/dev/null | tr -d '\r' >"$folder/$name.each" || return 1
    done
    { diff "$folder/$3.each" "$folder/$4.each" || true; } | sed -n 's/^[<>] [0-9]* [0-9a-f]* //p' | sed -n 1p
}

# compare_digests FOLDER NAME NAME...: says in which forms a platform writes something else than the first one. Their
# digests are FOLDER/NAME.digest. Fails when any does.
compare_digests() {
    local folder="$1" reference="$2" name form digest rest object result=0
    for name in "${@:3}"; do
        local -A found=()
        while read -r form digest rest; do
            found[$form]="$digest $rest"
        done <"$folder/$name.digest"
        local forms=() differ=()
        while read -r form digest rest; do
            forms+=("$form")
            [[ ${found[$form]:-} == "$digest $rest" ]] || differ+=("$form")
        done <"$folder/$reference.digest"
        # That of everything follows from those of the forms.
        if ((${#differ[@]} > 1)); then
            unset 'differ[-1]'
        fi
        for form in "${differ[@]}"; do
            object="$(first_difference "$folder" "$form" "$reference" "$name")" || object=''
            printf '%s writes something else than %s in the form %s%s\n' \
                "$name" "$reference" "$form" "${object:+, first of $object}"
            result=1
        done
    done
    return $result
}

# --- Building

# Runs a command, which ends at the first step that fails, and leaves its result in apart_result. To be called as a
# command of its own: in a condition the shell would go on behind a step that failed.
apart() {
    set +e
    (
        set -e
        "$@"
    )
    apart_result=$?
    set -e
}

# build_platform NAME HOW...: leaves platform.sh in build/platforms/NAME, or of a preset in build/PRESET.
build_platform() {
    local name="$1" compiler="$2" qt="$3" level="${4:-}" link_time="${5:-}"
    local folder="build/platforms/$name"
    if [[ $compiler == preset ]]; then
        build "$qt" --target reportbase_tests report_digest
        return
    fi
    need "${build_packages[@]}" "${test_packages[@]}" clang lld
    say "Building $name"
    local words=(-G Ninja -DREPORTGENERATOR_WERROR=ON "-DREPORTGENERATOR_QT_MAJOR=$qt" "-DCMAKE_CXX_COMPILER=$compiler"
        -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=$level")
    if [[ -n $link_time ]]; then
        words+=(-DCMAKE_INTERPROCEDURAL_OPTIMIZATION=ON)
        # What Clang leaves to the linker is understood by its own.
        [[ $compiler != clang++ ]] || words+=(-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=lld -DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld)
    fi
    # What it was configured with. CMake would keep options that are not given any more.
    if [[ ! -f $folder/words || $(<"$folder/words") != "${words[*]}" ]]; then
        rm -rf "$folder"
        run cmake -S . -B "$folder" "${words[@]}"
        printf '%s\n' "${words[*]}" >"$folder/words"
    fi
    run cmake --build "$folder" --parallel "$jobs" --target report_digest
}

# --- Running

# with_platform COMMAND...: runs a command in the surroundings that the platform's programs need.
with_platform() {
    if [[ $system == Windows ]] && declare -F with_wine >/dev/null; then
        with_wine "$@"
    else
        "$@"
    fi
}

# run_platform FOLDER NAME: tests and digests, with what the platform.sh of a build told. The tests of a build without
# tests of its own are those of another one, with this one's library.
run_platform() {
    local folder="$1" name="$2"
    local surroundings=(env LC_ALL=C.UTF-8)
    if [[ -n ${lent_library:-} ]]; then
        surroundings+=("LD_LIBRARY_PATH=$lent_library")
        # That of the build that lends the tests would be found otherwise. What ldd writes is read to its end: whoever
        # writes to nobody fails.
        "${surroundings[@]}" ldd "$tests" | grep -F "=> ${lent_library%%:*}/libreportbase" >/dev/null || fail "$tests takes another library"
    fi
    say "Testing $name"
    show "${surroundings[@]}" "${emulator[@]}" "$tests" --gtest_brief=1
    local result=0
    "${surroundings[@]}" "${emulator[@]}" "$tests" --gtest_brief=1 2>&1 | tr -d '\r' >"$folder/$name.tests" || result=$?
    grep -E '^\[  (PASSED|FAILED)  \]' "$folder/$name.tests" || true
    say "Digesting what $name writes"
    printf '%q ' "${emulator[@]}" "$digest" >"$folder/$name.command"
    show env LC_ALL=C.UTF-8 "${emulator[@]}" "$digest"
    env LC_ALL=C.UTF-8 "${emulator[@]}" "$digest" 2>"$folder/$name.errors" |
        tr -d '\r' >"$folder/$name.digest.part" || return 1
    mv "$folder/$name.digest.part" "$folder/$name.digest"
    return $result
}

# A number with commas: 3412 becomes 3,412.
with_commas() {
    sed -E ':again; s/^([0-9]+)([0-9]{3})/\1,\2/; t again' <<<"$1"
}

# The first number in the line of a test run that begins so; 0 without such a line.
count_of() {
    local found
    found="$(sed -n "s/^$1 *\([0-9]*\) test.*/\1/p" "$2" | sed -n 1p)"
    printf '%s' "${found:-0}"
}

# One row of the table.
platform_row() {
    local folder="$1" name="$2" problem="$3"
    local told='not run' all='not to be had' title="$name"
    if [[ -n ${system:-} ]]; then
        title="$system ${processor/x86_64/x86-64}"
        [[ $byte_order != BIG_ENDIAN ]] || title+=', big-endian'
        ((${#emulator[@]} == 0)) || title+=', emulated'
    fi
    if [[ -f $folder/$name.tests ]]; then
        local passed failed
        passed="$(count_of '\[  PASSED  \]' "$folder/$name.tests")"
        failed="$(count_of '\[  FAILED  \]' "$folder/$name.tests")"
        told="$(with_commas "$passed")"
        ((failed == 0)) || told+=", $(with_commas "$failed") failed"
    fi
    if [[ -f $folder/$name.digest ]]; then
        # shellcheck disable=SC2016 # the first digits, as code
        all="$(sed -n 's/^everything \([0-9a-f]\{16\}\).*/`\1…`/p' "$folder/$name.digest")"
    fi
    if [[ -n $problem && $told == 'not run' ]]; then
        told="$problem"
    fi
    printf '| %s | %s | %s | %s | %s | %s |\n' "$title" "${compiler:-}" "${qt:-}" "${optimisation:-}" "$told" "$all"
}

# --- The command

put_table() {
    local page=docs/platforms.md table="$1"
    local begin='<!-- table: begin, written by ./dev platforms --update-docs -->' end='<!-- table: end -->'
    if ! grep -qxF -e "$begin" "$page" || ! grep -qxF -e "$end" "$page"; then
        fail "$page has no place for the table"
    fi
    {
        sed "/^<!-- table: begin/q" "$page"
        printf '\n'
        cat "$table"
        printf '\n'
        sed -n '/^<!-- table: end/,$p' "$page"
    } >"$page.new"
    mv "$page.new" "$page"
}

command_platforms() {
    local only=() update=0
    while (($# > 0)); do
        case "$1" in
            --only)
                platform_names | grep -xF -e "${2:-}" >/dev/null || fail "--only takes one of: $(platform_names | tr '\n' ' ')"
                only+=("$2")
                shift
                ;;
            --list)
                platform_names
                return
                ;;
            --update-docs) update=1 ;;
            *) fail "platforms does not know '$1'" ;;
        esac
        shift
    done
    ((update == 0 || ${#only[@]} == 0)) || fail "docs/ takes the table of a whole run only"

    local folder=build/platforms/results row name words problems=() ran=()
    rm -rf "$folder"
    mkdir -p "$folder"
    local table="$folder/table.md"
    printf '| %s | %s | %s | %s | %s | %s |\n' platform compiler Qt optimisation 'tests passed' 'digest of everything' >"$table"
    printf '|---|---|---|---|---|---|\n' >>"$table"

    for row in "${platform_rows[@]}"; do
        read -r -a words <<<"$row"
        name="${words[0]}"
        if ((${#only[@]} > 0)) && ! printf '%s\n' "${only[@]}" | grep -xF -e "$name" >/dev/null; then
            continue
        fi
        try_platform "$folder" "${words[@]}"
        [[ ! -s $folder/problem ]] || problems+=("$(<"$folder/problem")")
        [[ ! -f $folder/$name.digest ]] || ran+=("$name")
        cat "$folder/row" >>"$table"
    done

    local differences=''
    ((${#ran[@]} < 2)) || differences="$(compare_digests "$folder" "${ran[@]}")" || true
    say "What was tried"
    cat "$table"
    if ((${#ran[@]} < 2)); then
        say "Nothing to compare"
    elif [[ -z $differences ]]; then
        say "All of them write the same: $(sed -n 's/^everything //p' "$folder/${ran[0]}.digest" | cut -d ' ' -f 1)"
    else
        problems+=("$differences")
    fi
    if ((${#problems[@]} > 0)); then
        printf '%s\n' "${problems[@]}" >&2
        fail "the platforms are not all good"
    fi
    ((update == 0)) || put_table "$table"
}

# try_platform FOLDER NAME HOW...: leaves the row in FOLDER/row and what is wrong, if anything, in FOLDER/problem.
try_platform() {
    local folder="$1" name="$2" problem=''
    local place="build/platforms/$name" lender='' lent_library=''
    if [[ $3 == preset ]]; then
        place="build/$4"
    else
        # Its library is tried by the tests of the unoptimised build for the same Qt.
        lender="$([[ $4 == 5 ]] && printf dev || printf qt6)"
    fi
    local system='' processor='' byte_order='' compiler='' qt='' optimisation='' emulator=() libraries='' tests='' digest=''

    if [[ $3 == preset ]] && ! cmake --list-presets | grep -F "\"$4\"" >/dev/null; then
        problem="not built: there is no preset '$4'"
    else
        apart build_platform "${@:2}"
        ((apart_result == 0)) || problem='not built'
    fi
    if [[ -z $problem && -n $lender ]]; then
        apart build "$lender" --target reportbase_tests
        ((apart_result == 0)) || problem="not tested: the tests of '$lender' are not built"
    fi
    if [[ -z $problem ]]; then
        # shellcheck source=/dev/null
        source "$place/platform.sh"
        if [[ -n $lender ]]; then
            lent_library="$libraries"
            # shellcheck source=/dev/null
            tests="$(source "build/$lender/platform.sh" && printf '%s' "$tests")"
        fi
        apart with_platform run_platform "$folder" "$name"
        ((apart_result == 0)) || problem='failed'
    fi
    platform_row "$folder" "$name" "$problem" >"$folder/row"
    : >"$folder/problem"
    [[ -z $problem ]] || printf '%s: %s\n' "$name" "$problem" >"$folder/problem"
}
