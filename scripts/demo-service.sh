#!/usr/bin/env bash
# The print service in a minute: the simulated printer on a link, `corvid serve` on it, a
# token, the sample sale posted twice with one idempotency key (202, then 200 and the same
# job), and the paper: one receipt.
#   scripts/demo-service.sh NATIVE_BUILD_DIR
set -euo pipefail
build=$(cd "${1:?usage: $0 NATIVE_BUILD_DIR}" && pwd)
root=$(cd "$(dirname "$0")/.." && pwd)
corvid="$build/tools/corvid/corvid"
simulator="$build/sim/corvid-sim"
work="$build/demo-service"

rm -rf "$work"
mkdir -p "$work"
mkfifo "$work/sim.out" "$work/serve.out"
pids=()
stop_all() {
    local pid
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    for pid in "${pids[@]}"; do wait "$pid" 2>/dev/null || true; done
}
trap stop_all EXIT

# The first line of each program's output says it is ready; it is read with a bound.
first_line() {
    local fd=$1 what=$2 line
    IFS= read -r -t 10 -u "$fd" line || { echo "demo-service: $what did not start" >&2; exit 1; }
    printf '%s\n' "$line"
}

echo
echo "== The print service: corvid serve on the simulated printer"
"$simulator" --link "$work/printer" --paper "$work/paper.txt" >"$work/sim.out" &
pids+=($!)
exec 3<"$work/sim.out"
first_line 3 corvid-sim >/dev/null

token=$("$corvid" token add demo --data "$work/data")
echo "\$ corvid token add demo --data $work/data"
echo "${token:0:8}... (the service keeps only its hash)"

"$corvid" serve --printer default="$work/printer" --data "$work/data" \
    --listen 127.0.0.1:0 >"$work/serve.out" &
pids+=($!)
exec 4<"$work/serve.out"
listening=$(first_line 4 "corvid serve")
echo "\$ corvid serve --printer default=$work/printer --data $work/data --listen 127.0.0.1:0"
echo "$listening"
url=${listening##* }

printf '{"type": "sale", "document": %s}\n' "$(cat "$root/tools/corvid/samples/sale.json")" \
    >"$work/sale-job.json"
post() {
    curl -sS -o "$work/reply.json" -w '%{http_code}' -X POST "$url/v1/jobs" \
        -H "Authorization: Bearer $token" -H "Idempotency-Key: demo-sale-1" \
        -H "Content-Type: application/json" --data-binary @"$work/sale-job.json"
}
# The first value of a top-level field of a job (its keys come sorted, "state" before "steps").
field() { grep -o "\"$1\":[^,}]*" "$2" | head -n 1 | sed 's/^[^:]*://; s/"//g'; }

for attempt in first second; do
    status=$(post)
    echo "POST /v1/jobs, key demo-sale-1 ($attempt time): $status, job $(field id "$work/reply.json"), $(field state "$work/reply.json")"
done

# The job's state, asked five times a second for at most 30 seconds.
id=$(field id "$work/reply.json")
for _ in $(seq 150); do
    curl -sS -o "$work/job.json" -H "Authorization: Bearer $token" "$url/v1/jobs/$id"
    state=$(field state "$work/job.json")
    case $state in queued | printing) sleep 0.2 ;; *) break ;; esac
done
number=$(field document_number "$work/job.json")
echo "job $id: $state, invoice $number"

echo
echo "   What the printer printed:"
sed 's/^/  | /' "$work/paper.txt"
receipts=$(grep -c "^FACTURA" "$work/paper.txt" || true)
echo
if [ "$state" = done ] && [ "$receipts" = 1 ]; then
    echo "one receipt: invoice $number"
else
    echo "demo-service: expected one receipt of a done job, found $receipts ($state)" >&2
    exit 1
fi
echo
echo "To watch the service in a browser: run '$corvid serve', open http://127.0.0.1:8720/ and"
echo "sign in with the six digits '$corvid token pair me' prints."
