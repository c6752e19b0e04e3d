#!/usr/bin/env bash
# What an exchange costs a script host that drives CorvidAPI.dll under Wine:
#   scripts/bench-wine.sh WINDOWS_BUILD_DIR CORVID_SIM
# Registers the DLL in the build's private Wine prefix and runs bench/wine_bench.vbs with
# cscript against corvid-sim, linked as COM${CORVID_BENCH_PORT:-9} of the prefix, three times:
#  (a) the printer answers at once: exchanges per second;
#  (b) the printer holds every reply 200 ms: processor time of the script host's process
#      (all its threads) and of the wineserver while a reply is held, read from
#      /proc/<pid>/task/*/schedstat when the simulator's transcript shows the host's byte
#      and again when it shows the held reply;
#  (c) the printer holds every reply 10 ms: time from the printer writing a reply to the
#      host's next byte, from the transcript's timestamps.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"

build_dir=$(cd "${1:?usage: $0 WINDOWS_BUILD_DIR CORVID_SIM}" && pwd)
simulator=$(realpath "${2:?usage: $0 WINDOWS_BUILD_DIR CORVID_SIM}")
root=$(cd "$(dirname "$0")/.." && pwd)
dll="$build_dir/src/registration/CorvidAPI.dll"
work="$build_dir/bench-wine"
port=${CORVID_BENCH_PORT:-9}
held_ms=200
held_exchanges=${CORVID_BENCH_HELD:-25}
fast_exchanges=${CORVID_BENCH_FAST:-500}
latency_ms=10
latency_exchanges=${CORVID_BENCH_LATENCY:-500}

[ -f "$dll" ] || { echo "bench-wine: $dll is not built" >&2; exit 1; }
[ -x "$simulator" ] || { echo "bench-wine: $simulator is not built" >&2; exit 1; }

timeout 300 "$root/scripts/wine-env.sh" "$build_dir" true
export WINEPREFIX="$build_dir/wineprefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
# The wineserver takes the first terminal it opens as its controlling terminal and prints
# its object table when that terminal hangs up (a simulator stopping): keep that out of
# the report. Fails harmlessly when a wineserver already serves the prefix.
wineserver -p5 </dev/null >/dev/null 2>&1 || true

rm -rf "$work"
mkdir -p "$work"
cp "$root/bench/wine_bench.vbs" "$work/"
timeout 120 "$wine" regsvr32 /s "$(winepath -w "$dll" 2>/dev/null)" >/dev/null 2>&1 ||
    { echo "bench-wine: regsvr32 failed" >&2; exit 1; }

link="$WINEPREFIX/dosdevices/com$port"
sim_pid=
stop_simulator() {
    if [ -n "$sim_pid" ]; then
        kill "$sim_pid" 2>/dev/null || true
        wait "$sim_pid" 2>/dev/null || true
        sim_pid=
    fi
    rm -f "$link"
}
trap stop_simulator EXIT

# Starts the simulator with the given options, its transcript going to $1.
start_simulator() {
    local out=$1
    shift
    rm -f "$link"
    "$simulator" --transcript --link "$link" "$@" >"$out" 2>"$work/sim.err" &
    sim_pid=$!
    for _ in $(seq 100); do [ -e "$link" ] && return 0; sleep 0.05; done
    echo "bench-wine: the simulator did not start" >&2
    exit 1
}

# Runs the script for $1 exchanges in the background; its pid is in script_pid.
start_script() {
    (cd "$work" && rm -f ORV.ini &&
        CORVID_SIM_PORT=$port CORVID_BENCH_EXCHANGES=$1 CORVID_BENCH_RUN=$$ \
            exec timeout 600 "$wine" cscript //nologo wine_bench.vbs >"$work/script.out" 2>/dev/null) &
    script_pid=$!
}

finish_script() {
    wait "$script_pid" || { echo "bench-wine: the script failed" >&2; exit 1; }
    stop_simulator
    if ! grep -q "failed 0" "$work/script.out"; then
        echo "bench-wine: $(tr -d '\r' <"$work/script.out")" >&2
        exit 1
    fi
}

# The pid of the process named $1 (a glob) whose environment holds $2, into REPLY.
find_process() {
    local p comm
    REPLY=
    for p in /proc/[0-9]*; do
        read -r comm <"$p/comm" 2>/dev/null || continue
        # shellcheck disable=SC2053
        [[ "$comm" == $1 ]] || continue
        grep -qzx -- "$2" "$p/environ" 2>/dev/null && { REPLY=${p#/proc/}; return; }
    done
}

# Nanoseconds a process has run on a processor, all its threads, into REPLY (no subshell,
# so that taking a sample costs little).
cpu_ns() {
    local total=0 file ns rest
    for file in /proc/"$1"/task/*/schedstat; do
        read -r ns rest <"$file" 2>/dev/null && total=$((total + ns))
    done
    REPLY=$total
}

# p50 and p99 in milliseconds of the gaps (seconds, one a line) in file $1.
percentiles() {
    sort -g "$1" | awk '{ v[NR] = $1 }
        END { if (NR == 0) { print "no samples"; exit }
              i50 = int(NR * 0.50 + 0.5); if (i50 < 1) i50 = 1
              i99 = int(NR * 0.99 + 0.5); if (i99 < 1) i99 = 1; if (i99 > NR) i99 = NR
              printf "p50 %.3f ms, p99 %.3f ms (%d replies)", v[i50] * 1000, v[i99] * 1000, NR }'
}

# From a transcript, the gaps between a reply and the host's next byte, once the first
# "w" block was sent: status replies to $2, ACKs (the end of Execute) to $3.
reply_gaps() {
    awk -v status="$2" -v ack="$3" '
        $2 == "host" && $3 ~ /^\[STX\]w\[ETX\]/ { started = 1 }
        !started { next }
        $2 == "printer" { reply = $3; at = $1 + 0; pending = 1; next }
        $2 == "host" && pending {
            printf "%.9f\n", $1 - at >> (reply == "[ACK]" ? ack : status); pending = 0 }
    ' "$1"
}

echo "CorvidAPI.dll under Wine $("$wine" --version 2>/dev/null | sed 's/^wine-//'), VBScript" \
    "through cscript, simulated printer on a pseudo-terminal as COM$port"

# (a) Throughput.
start_simulator "$work/fast.transcript"
start_script "$fast_exchanges"
finish_script
awk -v n="$fast_exchanges" '
    $2 == "host" && $3 == "[ENQ]" { enq = $1 + 0 }
    $2 == "host" && $3 ~ /^\[STX\]w\[ETX\]/ { if (!start) start = enq; inw = 1 }
    $2 == "printer" && inw { end = $1 + 0; inw = 0 }
    END { printf "(a) %d exchanges: %.0f exchanges/s, %.3f ms each (ENQ, status, block, ACK)\n",
                 n, n / (end - start), (end - start) / n * 1000 }' "$work/fast.transcript"

# (b) Processor time while replies are held, sampled as the transcript goes by.
fifo="$work/held.fifo"
mkfifo "$fifo"
# Opened both ways, so that neither end waits for the other.
exec 3<>"$fifo"
start_simulator "$fifo" --delay "$held_ms"
start_script "$held_exchanges"
host_pid=
server_pid=
started=0
done_exchanges=0
in_w=0
held_us=0
held_host=0
held_server=0
run_us=0
run_host=0
run_server=0
since=
while IFS= read -r -t 30 line; do
    now=${EPOCHREALTIME/./}
    printf '%s\n' "$line" >>"$work/held.transcript"
    set -f
    # shellcheck disable=SC2086
    set -- $line
    set +f
    [ $# -ge 3 ] || continue
    if [ -z "$host_pid" ]; then
        find_process cscript.exe "CORVID_BENCH_RUN=$$"
        host_pid=$REPLY
        find_process 'wineserver*' "WINEPREFIX=$WINEPREFIX"
        server_pid=$REPLY
        if [ -z "$host_pid" ] || [ -z "$server_pid" ]; then
            echo "bench-wine: cannot find the script host's processes" >&2
            exit 1
        fi
    fi
    cpu_ns "$host_pid"
    host_ns=$REPLY
    cpu_ns "$server_pid"
    server_ns=$REPLY
    if [ "$2" = host ] && [[ "$3" == "[STX]w[ETX]"* ]]; then
        in_w=1
        if [ "$started" = 0 ]; then
            started=1
            run_from=$now run_host_from=$host_ns run_server_from=$server_ns
        fi
    fi
    [ "$started" = 1 ] || continue
    if [ "$2" = host ]; then
        since=$now since_host=$host_ns since_server=$server_ns
    elif [ -n "$since" ]; then
        held_us=$((held_us + now - since))
        held_host=$((held_host + host_ns - since_host))
        held_server=$((held_server + server_ns - since_server))
        since=
        if [ "$in_w" = 1 ]; then
            in_w=0
            done_exchanges=$((done_exchanges + 1))
            if [ "$done_exchanges" -ge "$held_exchanges" ]; then
                run_us=$((now - run_from))
                run_host=$((host_ns - run_host_from))
                run_server=$((server_ns - run_server_from))
                break
            fi
        fi
    fi
done <&3
finish_script
exec 3<&-
[ "$done_exchanges" -ge "$held_exchanges" ] ||
    { echo "bench-wine: only $done_exchanges of $held_exchanges held exchanges seen" >&2; exit 1; }
awk -v n="$held_exchanges" -v ms="$held_ms" -v held="$held_us" -v host="$held_host" \
    -v server="$held_server" -v run="$run_us" -v rhost="$run_host" -v rserver="$run_server" '
    BEGIN {
        printf "(b) replies held %d ms (%d exchanges, %.2f s held of %.2f s):\n", ms, n,
               held / 1e6, run / 1e6
        printf "    while held: script host %.1f ms = %.3f%%, wineserver %.1f ms = %.3f%%\n",
               host / 1e6, host / 1e3 / held * 100, server / 1e6, server / 1e3 / held * 100
        printf "    whole run:  script host %.1f ms = %.3f%%, wineserver %.1f ms = %.3f%%\n",
               rhost / 1e6, rhost / 1e3 / run * 100, rserver / 1e6, rserver / 1e3 / run * 100
    }'

# (c) Reaction to a reply.
start_simulator "$work/latency.transcript" --delay "$latency_ms"
start_script "$latency_exchanges"
finish_script
rm -f "$work/status.gaps" "$work/ack.gaps"
reply_gaps "$work/latency.transcript" "$work/status.gaps" "$work/ack.gaps"
echo "(c) replies held $latency_ms ms ($latency_exchanges exchanges), reply written -> host's next byte:"
echo "    status reply -> command block (inside Execute): $(percentiles "$work/status.gaps")"
echo "    ACK -> next ENQ (Execute returns to the script, which calls again): $(percentiles "$work/ack.gaps")"
