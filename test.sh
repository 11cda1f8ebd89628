#!/usr/bin/env bash
# Builds and tests everything, or what belongs to NAME: ./test.sh [NAME]
# Last line: "N passed, N failed". Exit status 0 if something ran and nothing failed. docs/building.md has the details.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
# shellcheck source=cmake/house.sh
. cmake/house.sh

name=${1:-}
passed=0 failed=0 skipped=0
fuzz_seconds=10 fuzz_seconds_together=120 # divided among the processors
fixed_addresses=() # a prefix that turns off address randomisation, which breaks the sanitizers under some kernels

add() { # passed failed skipped
    passed=$((passed + $1)) failed=$((failed + $2)) skipped=$((skipped + $3))
}

finish() {
    [ $((passed + failed)) -gt 0 ] || { say nothing "ran" && failed=1; }
    [ "$skipped" = 0 ] || say skipped "$skipped cases skipped themselves"
    echo "$passed passed, $failed failed"
    [ "$failed" = 0 ]
    exit
}

# fail TEXT: something other than a test failed.
fail() {
    say FAILED "$1"
    add 0 1 0
}

since() { echo "$((SECONDS - $1)) s"; }

configure() { # preset
    cmake --preset "$1" >"build/$1.log" 2>&1 && return
    tail -n 15 "build/$1.log"
    fail "$1 does not configure, see build/$1.log"
    return 1
}

# build PRESET TARGET...
build() {
    local preset=$1 log=build/$1.log start=$SECONDS
    shift
    configure "$preset" || return
    if ! cmake --build "build/$preset" -j "$jobs" --target "$@" >>"$log" 2>&1; then
        grep -E -A 3 -m 5 'error:|undefined reference' "$log" || tail -n 15 "$log"
        fail "$preset does not build, see $log"
    else
        say "$preset" "built in $(since $start)"
        return 0
    fi
    return 1
}

# tally BUILD: shows the output of tally.py and adds up its last line.
tally() {
    local lines counts
    mapfile -t lines < <(python3 cmake/tally.py "$1")
    [ ${#lines[@]} -gt 0 ] || lines=("0 1 0")
    [ ${#lines[@]} = 1 ] || printf '%s\n' "${lines[@]:0:${#lines[@]}-1}"
    read -ra counts <<<"${lines[-1]}"
    add "${counts[@]}"
    tallied="${counts[0]} passed, ${counts[1]} failed"
}

# run_tests PRESET [TEST...]: runs all tests of a build, or those named.
run_tests() {
    local preset=$1 start=$SECONDS tests=()
    shift
    [ $# = 0 ] || tests=(-R "^($(IFS='|' && echo "$*"))\$")
    rm -f "build/$preset/ctest.xml" "build/$preset"/results/*.xml
    "${fixed_addresses[@]}" ctest --test-dir "build/$preset" -j "$jobs" --no-tests=error --output-on-failure \
        --test-output-size-passed 100000 --output-junit "$PWD/build/$preset/ctest.xml" "${tests[@]}" \
        >"build/$preset-tests.log" 2>&1 </dev/null
    tally "build/$preset"
    say "$preset" "$tallied in $(since $start)"
}

# rows PRESET: the tests of a configured build whose names contain NAME, with the targets that they need.
rows() { awk -v name="$name" 'index($1, name)' "build/$1/tests.txt"; }

# programs_with FILTER: the GoogleTest programs of the native build that have cases of that name.
programs_with() {
    local test kind
    while read -r test kind _; do
        [ "$kind" = gtest ] || continue
        "build/native/tests/$test" --gtest_list_tests --gtest_filter="$1" 2>/dev/null | grep -q '^  ' && echo "$test"
    done <build/native/tests.txt
}

# run_filtered PRESET FILTER: builds and runs only the cases of that name, in another build.
run_filtered() {
    local preset=$1 filter=$2 programs
    mapfile -t programs < <(programs_with "$filter")
    if [ ${#programs[@]} = 0 ]; then
        fail "no test matches $filter"
    elif build "$preset" "${programs[@]}"; then
        GTEST_FILTER=$filter run_tests "$preset" "${programs[@]}"
    fi
}

fuzz_one() { # name seconds
    local found=build/fuzz/found/$1 start=$SECONDS log=build/fuzz-$1.log
    mkdir -p "$found" "build/fuzz/corpus/$1"
    if "${fixed_addresses[@]}" "build/fuzz/fuzz/$1_fuzz" -max_total_time="$2" -timeout=10 -rss_limit_mb=2048 -verbosity=1 \
        -artifact_prefix="$found/" "build/fuzz/corpus/$1" "fuzz/corpus/$1" >"$log" 2>&1; then
        say fuzz "$1: $(grep -oE '^Done [0-9]+ runs' "$log") in $(since $start)"
    else
        grep -E -A 12 -m 1 'ERROR|runtime error' "$log" || tail -n 5 "$log"
        say FAILED "fuzz target $1, see $log; the input lies in $found"
        return 1
    fi
}

# fuzz_lane SECONDS TARGET...: runs the first target and every jobs-th one after it, one after the other. The status is
# the number that failed.
fuzz_lane() {
    local seconds=$1 bad=0
    shift
    while [ $# -gt 0 ]; do
        fuzz_one "${1%_fuzz}" "$seconds" || bad=$((bad + 1))
        shift $((jobs < $# ? jobs : $#))
    done
    return $bad
}

fuzz() {
    local targets=(fuzz/*_fuzz.cpp)
    [ -e "${targets[0]}" ] || return
    targets=("${targets[@]##*/}")
    targets=("${targets[@]%.cpp}")
    build fuzz "${targets[@]}" || return
    local seconds=$((fuzz_seconds_together / ${#targets[@]}))
    [ $seconds -le $fuzz_seconds ] || seconds=$fuzz_seconds
    [ $seconds -ge 1 ] || seconds=1
    local lane lanes=() bad=0
    for ((lane = 0; lane < jobs; ++lane)); do
        fuzz_lane $seconds "${targets[@]:lane}" &
        lanes+=($!)
    done
    for lane in "${lanes[@]}"; do
        wait "$lane"
        bad=$((bad + $?))
    done
    add $((${#targets[@]} - bad)) $bad 0
}

run_all() {
    build native all && run_tests native
    build mingw all && run_tests mingw
    run_filtered tsan '*Thread*:*Golden*'
    fuzz
}

run_named() {
    local preset tests targets found=
    for preset in native mingw; do
        configure $preset || return
        mapfile -t tests < <(rows $preset | cut -d' ' -f1)
        mapfile -t targets < <(rows $preset | cut -d' ' -f3- | tr ' ' '\n' | grep . | sort -u)
        [ ${#tests[@]} -gt 0 ] || continue
        found=yes
        if [ ${#targets[@]} = 0 ] || build $preset "${targets[@]}"; then
            run_tests $preset "${tests[@]}"
        fi
    done
    [ -n "$found" ] || fail "no test is called *$name*; there are: $(cut -d' ' -f1 build/native/tests.txt | xargs)"
}

install_packages build test || { fail "packages are missing"; finish; }
! setarch -R true 2>/dev/null || fixed_addresses=(setarch -R)
trap stop_windows EXIT
start_display || fail "Xvfb does not start, see build/xvfb.log"
start_wine || fail "no Wine prefix, see build/wine/made.log"
if [ -n "$name" ]; then run_named; else run_all; fi
finish
