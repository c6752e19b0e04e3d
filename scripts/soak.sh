#!/usr/bin/env bash
# Soak of CorvidAPI.dll under Wine: tests/soak/soak.vbs creates, uses and releases every
# published class CORVID_SOAK_CYCLES times (10000) in one cscript process:
#   scripts/soak.sh BUILD_DIR CORVID_SIM
# The closures it walks with For Each come from the simulated printer (corvid-sim, a Linux
# program) on COM7 of the prefix. Registers the DLL of BUILD_DIR in the build's Wine prefix
# (a 32-bit DLL with SysWOW64's regsvr32 and cscript), and at each stop of the script reads
# the cscript process from the Linux side: resident and anonymous (private) memory from
# /proc/PID/status, open descriptors from /proc/PID/fd, and the Windows handle count when
# Wine's WMI gives one. Prints them per class with the growth over that class's cycles, and
# fails when a class grows the private memory by more than CORVID_SOAK_MAX_KB (1024 KiB,
# about 100 bytes a cycle) or the descriptors or handles by more than
# CORVID_SOAK_MAX_HANDLES (4).
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"

build_dir=$(cd "${1:?usage: $0 BUILD_DIR CORVID_SIM}" && pwd)
simulator=${2:?usage: $0 BUILD_DIR CORVID_SIM}
root=$(cd "$(dirname "$0")/.." && pwd)
dll="$build_dir/src/registration/CorvidAPI.dll"
work="$build_dir/soak"
cycles=${CORVID_SOAK_CYCLES:-10000}
max_kb=${CORVID_SOAK_MAX_KB:-1024}
max_handles=${CORVID_SOAK_MAX_HANDLES:-4}

[ -f "$dll" ] || { echo "FAIL CorvidAPI.dll is built ($dll missing)"; exit 1; }
[ -x "$simulator" ] || { echo "FAIL corvid-sim is built ($simulator missing)"; exit 1; }

timeout 300 "$root/scripts/wine-env.sh" "$build_dir" true || true
WINEPREFIX=$(wine_prefix "$build_dir")
export WINEPREFIX
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
export CORVID_SOAK_CYCLES=$cycles

# The host programs of the DLL's own pointer size.
hosts=$(host_programs "$dll")
# Without its output: a wine program started here may start the prefix's wineserver.
dll_windows=$(winepath -w "$dll" 2>/dev/null)
if ! timeout 120 "$wine" "${hosts}regsvr32.exe" /s "$dll_windows" >/dev/null 2>&1; then
    echo "FAIL regsvr32 registers CorvidAPI.dll"
    exit 1
fi

rm -rf "$work"
mkdir -p "$work"
cp "$root/tests/soak/soak.vbs" "$work/"
output="$work/soak.out"

link="$WINEPREFIX/dosdevices/com7"
rm -f "$link"
"$simulator" --memory "$work/fiscal-memory" --link "$link" >"$work/sim.log" 2>&1 &
sim_pid=$!
# The wineserver may hold the terminal as its controlling one: let it leave before the
# simulator hangs the terminal up, or it prints its object table.
trap 'timeout 30 wineserver -w; kill "$sim_pid" 2>/dev/null' EXIT
for _ in $(seq 50); do [ -e "$link" ] && break; sleep 0.1; done
export CORVID_SIM_PORT=7

start=$(date +%s)
(cd "$work" && exec timeout 3600 "$wine" "${hosts}cscript.exe" //nologo soak.vbs) >"$output" 2>&1 &
runner=$!

# The Linux process running cscript.exe in this prefix.
cscript_pid() {
    local status cmdline
    for status in /proc/[0-9]*/cmdline; do
        cmdline=$({ tr '\0' ' ' <"$status"; } 2>/dev/null) || continue
        case "$cmdline" in
            # Wine's own process has the Windows command line (not timeout's, nor wine's).
            [A-Za-z]:\\*cscript.exe*soak.vbs*) ;;
            *) continue ;;
        esac
        local pid=${status#/proc/}
        pid=${pid%/cmdline}
        if grep -qx "WINEPREFIX=$WINEPREFIX" <({ tr '\0' '\n' <"/proc/$pid/environ"; } 2>/dev/null); then
            echo "$pid"
            return
        fi
    done
}

kb() { awk -v key="$1:" '$1 == key { print $2 }' "/proc/$2/status"; }

failed=0
declare -A rss anon fds handles
pid=
previous=
seen=0
printf '%-17s %10s %10s %10s %8s %8s %8s %8s %6s\n' \
    phase "rss KiB" "private" "growth" fds growth handles growth secs
while kill -0 "$runner" 2>/dev/null || [ "$(grep -c '^MEASURE ' "$output")" -gt "$seen" ]; do
    lines=$(grep -c '^MEASURE ' "$output")
    if [ "$lines" -le "$seen" ]; then
        sleep 0.2
        continue
    fi
    seen=$((seen + 1))
    label=$(grep '^MEASURE ' "$output" | sed -n "${seen}p" | cut -d' ' -f2 | tr -d '\r')
    handle_count=$(grep '^HANDLES ' "$output" | sed -n "${seen}p" | cut -d' ' -f2 | tr -d '\r')
    [ -n "$pid" ] || pid=$(cscript_pid)
    if [ -z "$pid" ]; then
        echo "FAIL the cscript process is found"
        failed=1
        touch "$work/go-$label"
        continue
    fi
    # Let the heap settle from the last release before reading it.
    sleep 0.5
    rss[$label]=$(kb VmRSS "$pid")
    anon[$label]=$(kb RssAnon "$pid")
    fds[$label]=$(find "/proc/$pid/fd" -mindepth 1 -maxdepth 1 2>/dev/null | wc -l)
    handles[$label]=${handle_count:--1}
    if [ -n "$previous" ]; then
        grow_kb=$((anon[$label] - anon[$previous]))
        grow_fds=$((fds[$label] - fds[$previous]))
        if [ "${handles[$label]}" -ge 0 ] && [ "${handles[$previous]}" -ge 0 ]; then
            grow_handles=$((handles[$label] - handles[$previous]))
        else
            grow_handles=n/a
        fi
        printf '%-17s %10s %10s %+10d %8s %+8d %8s %8s %6s\n' "$label" "${rss[$label]}" \
            "${anon[$label]}" "$grow_kb" "${fds[$label]}" "$grow_fds" "${handles[$label]}" \
            "$grow_handles" "$(($(date +%s) - start))"
        if [ "$grow_kb" -gt "$max_kb" ] || [ "$grow_fds" -gt "$max_handles" ] ||
            { [ "$grow_handles" != n/a ] && [ "$grow_handles" -gt "$max_handles" ]; }; then
            echo "FAIL $label: $cycles cycles grew the process beyond ${max_kb} KiB or $max_handles handles"
            failed=1
        fi
    else
        printf '%-17s %10s %10s %10s %8s %8s %8s %8s %6s\n' "$label" "${rss[$label]}" \
            "${anon[$label]}" - "${fds[$label]}" - "${handles[$label]}" - "$(($(date +%s) - start))"
    fi
    previous=$label
    touch "$work/go-$label"
done
wait "$runner"
status=$?

grep '^FAIL' "$output" && failed=1
if [ "$status" -ne 0 ] || ! grep -qx DONE <(tr -d '\r' <"$output"); then
    echo "FAIL soak.vbs ran to its end (exit status $status); its output:"
    tail -n 20 "$output"
    failed=1
fi
if [ -n "$previous" ] && [ "$previous" != baseline ]; then
    printf 'whole soak: private memory %+d KiB, descriptors %+d\n' \
        $((anon[$previous] - anon[baseline])) $((fds[$previous] - fds[baseline]))
fi
if [ "$failed" -eq 0 ]; then echo "soak passed"; else echo "soak failed"; fi
exit "$failed"
