#!/usr/bin/env bash
# Runs the libFuzzer programs of fuzz/ (configuring and building BUILD_DIR first).
#   scripts/fuzz.sh smoke BUILD_DIR   every program for a few seconds from its seed corpus
#   scripts/fuzz.sh full  BUILD_DIR   every program for 10^7 inputs
# Each program first runs the saved reproducers in fuzz/regressions/<name>/. New inputs go
# to a scratch corpus under build/fuzz-work/ (never into the seed corpus); a crash leaves
# its input there too. One line per program; the exit status is non-zero when any program
# crashed, hung, ran out of memory or failed a property.
#
# Environment: FUZZ_JOBS programs at a time (default 2), FUZZ_SMOKE_SECONDS per program in
# smoke mode (default 15), FUZZ_RUNS in full mode (default 10000000), FUZZ_MAX_SECONDS
# wall-clock cap per program in full mode (default 1200; 0 for none), FUZZ_ONLY a
# space-separated list of programs to run (default all).
set -uo pipefail

mode=${1:-}
build=${2:-}
if [[ "$mode" != smoke && "$mode" != full ]] || [[ -z "$build" ]]; then
    echo "usage: $0 smoke|full BUILD_DIR" >&2
    exit 2
fi
root=$(cd "$(dirname "$0")/.." && pwd)
[[ "$build" = /* ]] || build="$root/$build"
work="$root/build/fuzz-work/$mode"
jobs=${FUZZ_JOBS:-2}

# A build dir of its own: clang, the sanitizers and the fuzz programs.
if [[ ! -f "$build/CMakeCache.txt" ]]; then
    CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DCORVID_SANITIZE=ON -DCORVID_FUZZ=ON >/dev/null || exit 1
fi
cmake --build "$build" --target fuzz_all -j "$jobs" >"$build/fuzz-build.log" 2>&1 || {
    tail -n 40 "$build/fuzz-build.log" >&2
    exit 1
}

targets=()
for program in "$build"/fuzz/*_fuzz; do
    name=$(basename "$program" _fuzz)
    if [[ -n "${FUZZ_ONLY:-}" && " $FUZZ_ONLY " != *" $name "* ]]; then continue; fi
    targets+=("$name")
done
if [[ ${#targets[@]} -eq 0 ]]; then
    echo "fuzz: no programs in $build/fuzz" >&2
    exit 1
fi

mkdir -p "$work"
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

# Runs one program; writes its summary line to $work/<name>.line.
run_one() {
    local name=$1
    local program="$build/fuzz/${name}_fuzz"
    local seeds="$root/fuzz/corpus/$name"
    local regressions="$root/fuzz/regressions/$name"
    local scratch="$work/$name"
    local log="$work/$name.log"
    local line="$work/$name.line"
    local status=0 note=""
    [[ "$mode" = smoke ]] && rm -rf "$scratch"
    mkdir -p "$scratch/corpus" "$scratch/artifacts"
    : >"$log"

    if [[ -d "$regressions" ]] && compgen -G "$regressions/*" >/dev/null; then
        "$program" -artifact_prefix="$scratch/artifacts/" "$regressions"/* >>"$log" 2>&1 ||
            { status=$?; note="regression input fails"; }
    fi

    local limits=(-timeout=10 -rss_limit_mb=2048 -print_final_stats=1
                  -artifact_prefix="$scratch/artifacts/")
    if [[ "$mode" = smoke ]]; then
        limits+=(-max_total_time="${FUZZ_SMOKE_SECONDS:-15}")
    else
        limits+=(-runs="${FUZZ_RUNS:-10000000}")
        [[ "${FUZZ_MAX_SECONDS:-1200}" != 0 ]] && limits+=(-max_total_time="${FUZZ_MAX_SECONDS:-1200}")
    fi
    [[ -f "$root/fuzz/dict/$name.dict" ]] && limits+=(-dict="$root/fuzz/dict/$name.dict")
    local start end
    start=$(date +%s.%N)
    if [[ $status -eq 0 ]]; then
        "$program" "${limits[@]}" "$scratch/corpus" "$seeds" >>"$log" 2>&1 || status=$?
    fi
    end=$(date +%s.%N)

    local runs eps rss crashes
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
    eps=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" | tail -n 1)
    rss=$(sed -n 's/^stat::peak_rss_mb: *//p' "$log" | tail -n 1)
    crashes=$(find "$scratch/artifacts" -type f | wc -l)
    # A sanitizer report or a failed property is a failure even if the exit status hid it.
    if grep -qE '^(==[0-9]+==)?ERROR: |runtime error: |property failed: ' "$log"; then
        [[ $status -eq 0 ]] && status=1
    fi
    if [[ $status -eq 72 && $crashes -eq 0 ]] && grep -q 'run interrupted' "$log"; then
        note="INTERRUPTED (signal from outside), see $log"
    elif [[ $status -ne 0 ]]; then
        [[ $crashes -eq 0 ]] && crashes=1
        [[ -z "$note" ]] && note="exit $status"
        note="FAILED ($note), see $log"
    fi
    printf '%-18s runs=%-9s exec/s=%-7s time=%6.1fs peak_rss=%sMB crashes=%s %s\n' \
        "$name" "${runs:-?}" "${eps:-?}" "$(awk "BEGIN { print $end - $start }")" "${rss:-?}" \
        "$crashes" "$note" >"$line"
    return "$status"
}

echo "== fuzz $mode: ${#targets[@]} programs, $jobs at a time, logs in $work"
failed=0
running=0
for name in "${targets[@]}"; do
    if [[ $running -ge $jobs ]]; then
        wait -n || failed=1
        running=$((running - 1))
    fi
    run_one "$name" &
    running=$((running + 1))
done
while [[ $running -gt 0 ]]; do
    wait -n || failed=1
    running=$((running - 1))
done

for name in "${targets[@]}"; do
    cat "$work/$name.line" 2>/dev/null || { echo "$name: no result"; failed=1; }
done
if [[ $failed -ne 0 ]]; then
    echo "fuzz $mode: FAILED (crash inputs under $work/<name>/artifacts)" >&2
    exit 1
fi
echo "fuzz $mode: all ${#targets[@]} programs clean"
