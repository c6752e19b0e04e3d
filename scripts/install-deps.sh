#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the tools need, those that are
# missing. `--list` prints the list, one a line (scripts/check-deps.sh checks against it).
set -euo pipefail
packages=(
    cmake make gcc g++ googletest libgtest-dev libgmock-dev libbenchmark-dev
    nlohmann-json3-dev libcli11-dev clang-format
    mingw-w64 gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    wine wine64 libwine libwine-dev wine64-tools socat xvfb xauth x11-apps imagemagick imagemagick-6.q16
    ser2net clang clang-14 libclang-rt-14-dev
)
if [ "${1:-}" = --list ]; then
    printf '%s\n' "${packages[@]}"
    exit 0
fi
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
