#!/usr/bin/env bash
# The Windows print service under Wine, on a printer of the prefix's COM port:
#   scripts/run-service-wine-test.sh BUILD_DIR CORVID_SIM
# Links COM5 of the build's private prefix to the pseudo-terminal of the Linux simulator,
# adds a token with `corvid.exe token add`, starts `corvid.exe serve --printer front=COM5`
# on a free loopback port, posts the sample sale twice with one Idempotency-Key, follows the
# job to its end and reads the simulator's paper; then stops the service with Ctrl-C and
# checks that the prefix's Wine session ends. One PASS or FAIL line per check, then
# "N passed, M failed"; exits non-zero on any failure.
set -uo pipefail
# shellcheck source=scripts/wine-loader.sh
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"
unset DISPLAY

build_dir=$(cd "${1:?usage: $0 BUILD_DIR CORVID_SIM}" && pwd)
simulator=${2:?usage: $0 BUILD_DIR CORVID_SIM}
[ -x "$simulator" ] && simulator=$(cd "$(dirname "$simulator")" && pwd)/$(basename "$simulator")
root=$(cd "$(dirname "$0")/.." && pwd)
tool="$build_dir/tools/corvid/corvid.exe"
work="$build_dir/service-test"
sale="$root/tools/corvid/samples/sale.json"
key="wine-sale-$$"
wait_limit=${CORVID_SERVICE_WAIT:-30}

. "$(dirname "${BASH_SOURCE[0]}")/check-tally.sh"
sim_pid=
serve_pid=
# Stops what this script started, by the ids it was given.
cleanup() {
    [ -n "$serve_pid" ] && kill -KILL "$serve_pid" 2>/dev/null && wait "$serve_pid" 2>/dev/null
    [ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
    rm -f "${link:-}"
    serve_pid=""
    sim_pid=""
}
finish() {
    cleanup
    tally_exit
}
trap cleanup EXIT

# Waits up to $wait_limit seconds for a command to succeed, a tenth of a second between tries.
await() {
    local tries=$((wait_limit * 10))
    while ! "$@"; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.1
    done
}

if [ ! -f "$tool" ] || [ ! -x "$simulator" ]; then
    check "corvid.exe and corvid-sim are built ($tool, $simulator)" false
    finish
fi

# A session left with a display (the window tests) would show the scripts' previews.
enter_wine_prefix "$build_dir"

rm -rf "$work"
mkdir -p "$work"
link="$WINEPREFIX/dosdevices/com5"
rm -f "$link"
(cd "$work" && exec "$simulator" --link "$link" --paper sale.paper) >"$work/sim.log" 2>&1 &
sim_pid=$!
check "the simulator serves COM5 of the prefix" await test -e "$link"

data=$(winepath -w "$work/data" 2>/dev/null | tr -d '\r')
token=$(cd "$work" && timeout "$wait_limit" "$wine" "$tool" token add pos --data "$data" 2>"$work/token.err" | tr -d '\r')
check "corvid.exe token add prints a token" test -n "$token"

(cd "$work" && exec "$wine" "$tool" serve --printer front=COM5 --data "$data" \
    --listen 127.0.0.1:0) >"$work/serve.log" 2>&1 &
serve_pid=$!
listening() { grep -q "listening on http://" "$work/serve.log"; }
check "corvid.exe serve listens" await listening
url=$(grep -o "http://127.0.0.1:[0-9]*" "$work/serve.log" | head -n1)
[ -n "$url" ] || finish

# Posts the sale with the key: prints the status; the body goes to the file named.
post_sale() {
    { printf '{"printer":"front","type":"sale","document":'; cat "$sale"; printf '}'; } |
        curl -sS --max-time "$wait_limit" -o "$1" -w '%{http_code}' -X POST "$url/v1/jobs" \
            -H "Authorization: Bearer $token" -H "Idempotency-Key: $key" \
            -H "Content-Type: application/json" --data-binary @-
}
# A top-level field of a job's JSON: its steps are cut out first, they have states too.
field() {
    sed 's/"steps": *\[[^]]*\]//' | grep -o "\"$1\": *\"\{0,1\}[^\",}]*" | head -n1 |
        sed 's/.*: *"\{0,1\}//'
}
first=$(post_sale "$work/first.json")
second=$(post_sale "$work/second.json")
id=$(field id <"$work/first.json")
check "the first post is accepted (202): $first" test "$first" = 202 -a -n "$id"
check "the same key again gives 200 and the same job ($second, job $id)" \
    test "$second" = 200 -a "$(field id <"$work/second.json")" = "$id"

job=
ended() {
    job=$(curl -sS --max-time 5 -H "Authorization: Bearer $token" "$url/v1/jobs/$id")
    [[ "$(field state <<<"$job")" =~ ^(done|failed|cancelled|attention)$ ]]
}
await ended
number=$(field document_number <<<"$job")
check "the job is done with a document number ($(field state <<<"$job") $number)" \
    test "$(field state <<<"$job")" = "done" -a -n "$number" -a "$number" != null

# The paper shows one invoice, titled with the job's number in eight digits.
invoices=$(grep -E '^FACTURA +[0-9]+$' "$work/sale.paper" 2>/dev/null)
numbered=$(printf '%08d' "$((10#${number//[^0-9]/0}))")
check "the paper holds exactly one invoice, number $numbered ($(grep -c . <<<"$invoices") invoices)" \
    test "$(grep -c . <<<"$invoices")" = 1 -a "${invoices##* }" = "$numbered" -a "$numbered" != 00000000

# Ctrl-C reaches a Wine program as SIGINT; the service answers by stopping.
kill -INT "$serve_pid"
stopped() { ! kill -0 "$serve_pid" 2>/dev/null; }
check "Ctrl-C stops the service" await stopped
if stopped; then
    wait "$serve_pid"
    status=$?
    serve_pid=
    check "the service exits with status 0 ($status) after saying it stops" \
        test "$status" = 0 -a "$(grep -c 'corvid serve: stopping' "$work/serve.log")" = 1
fi
kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
sim_pid=
check "no Wine process of the prefix is left" timeout "$wait_limit" wineserver -w
finish
