#!/usr/bin/env bash
# Automation tests of CorvidAPI.dll under Wine:
#   scripts/run-automation-tests.sh BUILD_DIR
# Registers the DLL built in BUILD_DIR with regsvr32 in the build's private Wine prefix,
# runs every tests/registration/*.vbs with cscript, then unregisters the DLL and checks
# that the classes are gone (unregistered.vbs). Scripts run from a scratch folder under
# BUILD_DIR (their current directory, where they may write ORV.ini), each with
# tests/registration/checks.inc put in front. Each prints PASS/FAIL lines and DONE at its
# end; Wine's cscript reports no script errors, so a script without DONE counts as failed.
# The last line of output is "N passed, M failed"; exits non-zero on any failure.
#
# A 32-bit DLL (the i686 build) is registered and driven as 32-bit hosts do it: with the
# regsvr32 and cscript of C:\windows\syswow64, so its keys land in the prefix's WOW64 view
# (in a 32-bit prefix, as in the i386 root of scripts/i386-root.sh, with its system's own).
#
# Optional: CORVID_SIM_DEVICE=/dev/pts/N maps COM${CORVID_SIM_PORT:-7} of the prefix to that
# device (a simulator's pseudo-terminal); scripts read the port number from the
# CORVID_SIM_PORT environment variable.
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"
# No desktop: a preview the scripts' sessions show (test mode, the trace view) returns at
# once instead of waiting for a person.
unset DISPLAY

build_dir=$(cd "${1:?usage: $0 BUILD_DIR [CORVID_SIM]}" && pwd)
# The simulated printer (a Linux program) that sim_*.vbs scripts talk to.
simulator=${2:-}
[ -n "$simulator" ] && [ -x "$simulator" ] && simulator=$(cd "$(dirname "$simulator")" && pwd)/$(basename "$simulator")
root=$(cd "$(dirname "$0")/.." && pwd)
tests="$root/tests/registration"
work="$build_dir/automation-tests"
dll="$build_dir/src/registration/CorvidAPI.dll"
script_timeout=${CORVID_SCRIPT_TIMEOUT:-120}

. "$(dirname "${BASH_SOURCE[0]}")/check-tally.sh"
finish() {
    tally_exit
}

if [ ! -f "$dll" ]; then
    fail "CorvidAPI.dll is built ($dll missing)"
    finish
fi

# A session left with a display (the window tests) would show the scripts' previews.
enter_wine_prefix "$build_dir"

if [ -n "${CORVID_SIM_DEVICE:-}" ]; then
    export CORVID_SIM_PORT=${CORVID_SIM_PORT:-7}
    ln -sfn "$CORVID_SIM_DEVICE" "$WINEPREFIX/dosdevices/com$CORVID_SIM_PORT"
fi

rm -rf "$work"
mkdir -p "$work"
# Every script runs with the shared checks in front of it.
for script in "$tests"/*.vbs; do
    cat "$tests/checks.inc" "$script" >"$work/$(basename "$script")"
done
dll_windows=$(winepath -w "$dll" 2>/dev/null)

# The folder of the host programs of the DLL's own pointer size.
hosts=$(host_programs "$dll")
echo "regsvr32 and cscript of $hosts"

regsvr32() {
    timeout "$script_timeout" "$wine" "${hosts}regsvr32.exe" /s "$@" "$dll_windows" >/dev/null 2>&1
}

# Runs one script and counts its lines; a script that ends without DONE failed.
run_script() {
    local name=$1 output status
    output=$(cd "$work" && rm -f ORV.ini &&
        timeout "$script_timeout" "$wine" "${hosts}cscript.exe" //nologo "$name" 2>&1 | tr -d '\r')
    status=$?
    while IFS= read -r line; do
        case "$line" in
            PASS*) echo "$name: $line"; passed=$((passed + 1)) ;;
            FAIL*) echo "$name: $line"; failed=$((failed + 1)) ;;
            DONE) ;;
            "") ;;
            *) echo "$name: $line" ;;
        esac
    done <<<"$output"
    if [ "$status" -ne 0 ] || ! grep -qx DONE <<<"$output"; then
        fail "$name ran to its end (exit status $status)"
    fi
}

# From a prefix without the classes: keys an earlier run left would hide any this DLL
# fails to write.
regsvr32 /u || true
if regsvr32; then pass "regsvr32 registers CorvidAPI.dll"; else fail "regsvr32 registers CorvidAPI.dll"; fi

# Runs a sim_*.vbs script against a simulator of its own, started with the options its
# first line names ("' corvid-sim: --nak 100"), on COM7 of the prefix. A fresh simulator
# per script gives each a fresh pseudo-terminal.
run_sim_script() {
    local name=$1 options link="$WINEPREFIX/dosdevices/com7" sim_pid
    if [ -z "$simulator" ] || [ ! -x "$simulator" ]; then
        fail "$name has a simulated printer (corvid-sim not given)"
        return
    fi
    options=$(sed -n "1s/^' corvid-sim://p" "$tests/$name")
    rm -f "$link"
    # shellcheck disable=SC2086
    # From the scripts' folder, so that files it writes (--paper) are the script's to read.
    (cd "$work" && exec "$simulator" $options --link "$link") >"$work/$name.sim.log" 2>&1 &
    sim_pid=$!
    for _ in $(seq 50); do [ -e "$link" ] && break; sleep 0.1; done
    export CORVID_SIM_PORT=7
    run_script "$name"
    kill "$sim_pid" 2>/dev/null
    wait "$sim_pid" 2>/dev/null
    rm -f "$link"
}

for script in "$work"/*.vbs; do
    name=$(basename "$script")
    # CORVID_AUTOMATION_ONLY: run only the scripts whose names match this pattern.
    [[ "$name" == ${CORVID_AUTOMATION_ONLY:-*} ]] || continue
    case "$name" in
        unregistered.vbs) continue ;;
        sim_*.vbs) run_sim_script "$name" ;;
        *) run_script "$name" ;;
    esac
done

if regsvr32 /u; then pass "regsvr32 /u unregisters CorvidAPI.dll"; else fail "regsvr32 /u unregisters CorvidAPI.dll"; fi
[[ unregistered.vbs == ${CORVID_AUTOMATION_ONLY:-*} ]] && run_script unregistered.vbs
# Leave the prefix registered for whatever runs next in it.
if regsvr32; then pass "regsvr32 registers again after /u"; else fail "regsvr32 registers again after /u"; fi

finish
