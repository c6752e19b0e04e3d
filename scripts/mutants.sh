#!/usr/bin/env bash
# Mutation sample: does the test suite catch one-line bugs a person could write?
#   scripts/mutants.sh [NAME_GLOB]
# Reads every tests/mutants/*.list. Each mutant is a block of lines:
#   name: check-byte-one-short
#   file: src/session/framing.cpp
#   from: for (unsigned char byte : text) check ^= byte;
#   to:   for (unsigned char byte : text.substr(1)) check ^= byte;
#   test: native session_tests Framing.*
# "from" must occur exactly once in the file. Each "test" line names a test program that
# should catch the mutant:
#   native TARGET [GTEST_FILTER]   a suite of the Linux build (NATIVE_DIR)
#   wine TARGET [GTEST_FILTER]     a cross-built suite under Wine (WINDOWS_DIR)
#   automation SCRIPT.vbs          one VBScript suite against the registered CorvidAPI.dll
#   window                         the preview window under Xvfb and Wine
# For each mutant the file is changed, the named targets are built incrementally and the
# tests run until one fails (killed) or all pass (survived); the file is then put back.
# A mutant whose text is not found or that does not build is "invalid". Prints one line a
# mutant and "N killed, M survived, K invalid"; exits non-zero unless every one is killed.
set -uo pipefail
# "&" in a replacement text is a plain character.
shopt -u patsub_replacement 2>/dev/null
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
native=${NATIVE_DIR:-build/linux}
windows=${WINDOWS_DIR:-build/windows}
only=${1:-*}
test_timeout=${MUTANT_TEST_TIMEOUT:-600}
log_dir=build/mutants
mkdir -p "$log_dir"

killed=0
survived=0
invalid=0
saved=""
target_file=""
restore() {
    if [ -n "$saved" ]; then
        cp "$saved" "$target_file"
        rm -f "$saved"
        saved=""
    fi
}
trap 'restore; exit 130' INT TERM
trap restore EXIT

build() {  # build DIR TARGET...
    local dir=$1
    shift
    cmake --build "$dir" -j "$(nproc)" --target "$@" >>"$log" 2>&1
}

# Runs one test line; returns 0 when the tests pass, 1 when they fail, 2 when they could
# not be built.
run_test() {
    local kind=$1 target=${2:-} filter=${3:-}
    local args=(--gtest_brief=1)
    [ -n "$filter" ] && args+=("--gtest_filter=$filter")
    case "$kind" in
        native)
            build "$native" "$target" || return 2
            timeout "$test_timeout" "$native/tests/$target" "${args[@]}" >>"$log" 2>&1
            ;;
        wine)
            build "$windows" "$target" || return 2
            timeout "$test_timeout" scripts/wine-env.sh "$windows" scripts/wine-run.sh \
                "$windows/tests/$target.exe" "${args[@]}" >>"$log" 2>&1
            ;;
        automation)
            build "$windows" CorvidAPI || return 2
            build "$native" corvid-sim || return 2
            CORVID_AUTOMATION_ONLY="$target" timeout "$test_timeout" \
                scripts/run-automation-tests.sh "$windows" "$native/sim/corvid-sim" >>"$log" 2>&1
            ;;
        window)
            build "$windows" quickview-demo quickview-driver CorvidAPI || return 2
            timeout "$test_timeout" scripts/run-window-tests.sh "$windows" >>"$log" 2>&1
            ;;
        *)
            echo "unknown test kind '$kind'" >>"$log"
            return 2
            ;;
    esac
    [ $? -eq 0 ] && return 0 || return 1
}

run_mutant() {  # uses name, file, from, to, tests
    [[ "$name" == $only ]] || return 0
    log="$log_dir/$name.log"
    : >"$log"
    if [ ! -f "$file" ]; then
        echo "invalid  $name: $file does not exist"
        invalid=$((invalid + 1))
        return
    fi
    local content count
    IFS= read -rd '' content <"$file"
    count=$(grep -cF -- "$from" "$file")
    if [ "$count" -ne 1 ]; then
        echo "invalid  $name: the text to change occurs $count times in $file"
        invalid=$((invalid + 1))
        return
    fi
    target_file=$file
    saved=$(mktemp)
    cp "$file" "$saved"
    printf '%s' "${content/"$from"/"$to"}" >"$file"
    local outcome=survived by="" line status
    for line in "${tests[@]}"; do
        # shellcheck disable=SC2086
        run_test $line
        status=$?
        if [ $status -eq 1 ]; then
            outcome=killed
            by=$line
            break
        elif [ $status -eq 2 ]; then
            outcome=invalid
            by="does not build ($line)"
            break
        fi
    done
    restore
    case "$outcome" in
        killed) echo "killed   $name (by $by)"; killed=$((killed + 1)) ;;
        survived) echo "survived $name"; survived=$((survived + 1)) ;;
        invalid) echo "invalid  $name: $by"; invalid=$((invalid + 1)) ;;
    esac
}

for list in tests/mutants/*.list; do
    name=""
    while IFS= read -r line || [ -n "$line" ]; do
        case "$line" in
            "#"*) continue ;;
            name:*)
                [ -n "$name" ] && run_mutant
                name=$(sed 's/^name:[[:space:]]*//' <<<"$line")
                file="" from="" to="" tests=()
                ;;
            file:*) file=$(sed 's/^file:[[:space:]]*//' <<<"$line") ;;
            from:*) from=${line#from:} from=${from#"${from%%[![:space:]]*}"} ;;
            to:*) to=${line#to:} to=${to#"${to%%[![:space:]]*}"} ;;
            test:*) tests+=("$(sed 's/^test:[[:space:]]*//' <<<"$line")") ;;
        esac
    done <"$list"
    [ -n "$name" ] && run_mutant
done

echo "mutants: $killed killed, $survived survived, $invalid invalid"
[ "$survived" -eq 0 ] && [ "$invalid" -eq 0 ]
