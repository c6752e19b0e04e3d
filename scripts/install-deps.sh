#!/usr/bin/env bash
# Installs the Debian packages of scripts/packages.txt that are missing.
set -euo pipefail
cd "$(dirname "$0")"
mapfile -t packages < <(grep -v '^\s*#' packages.txt | grep -v '^\s*$')
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi
echo "Installing: ${missing[*]}"
SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO=sudo
# One index out of step (a mirror of another architecture, say) must not stop an install
# that the other indexes can satisfy: only the install itself decides.
if ! $SUDO apt-get update -qq; then
    echo "install-deps: refreshing the package lists failed in part; installing from what was read" >&2
fi
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
