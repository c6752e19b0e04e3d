#!/usr/bin/env bash
# Makes an i386 Debian root holding 32-bit Wine, for the 32-bit DLL's tests:
#   scripts/i386-root-recipe.sh DIR MIRROR
#   scripts/i386-root-recipe.sh --suite      prints the Debian release it takes
# Called by scripts/i386-root.sh, which keeps the root and makes it again whenever this
# file changes (the root stores this file's SHA-256). The host's own packages are not
# touched: no i386 architecture is added to it.
set -euo pipefail
suite=bookworm
if [ "${1:-}" = --suite ]; then
    echo "$suite"
    exit 0
fi
dir=${1:?usage: $0 DIR MIRROR}
mirror=${2:?usage: $0 DIR MIRROR}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

start=$(date +%s)
debootstrap --arch=i386 --variant=minbase "$suite" "$dir" "$mirror" >"$dir.log" 2>&1 || {
    tail -n 20 "$dir.log" >&2
    exit 1
}
bootstrapped=$(date +%s)
# Wine and its 32-bit loader; socat, which the serial tests start from inside Wine to join
# two pseudo-terminals. The simulator and the test runners stay on the host.
"$here/i386-root.sh" --root "$dir" --as-is inside sh -c '
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq &&
    apt-get install -y -qq --no-install-recommends wine wine32 socat >/dev/null &&
    apt-get clean' >>"$dir.log" 2>&1 || {
    tail -n 20 "$dir.log" >&2
    exit 1
}
finished=$(date +%s)
rm -f "$dir.log"
echo "i386 root: debootstrap $((bootstrapped - start)) s, Wine $((finished - bootstrapped)) s," \
    "$(du -sh --one-file-system "$dir" | cut -f1)"
