#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the tools need, those that are
# missing. `--list` prints the list, one a line (scripts/check-deps.sh checks against it).
set -euo pipefail
packages=(
    cmake make gcc g++ googletest libgtest-dev libgmock-dev libbenchmark-dev
    nlohmann-json3-dev libcli11-dev clang-format libssl-dev
    mingw-w64 gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    gcc-mingw-w64-i686-posix g++-mingw-w64-i686-posix binutils-mingw-w64-i686
    wine wine64 libwine libwine-dev wine64-tools socat xvfb xauth x11-apps imagemagick imagemagick-6.q16
    ser2net clang clang-14 libclang-rt-14-dev
    libboost1.81-dev libsqlite3-dev nodejs curl
    chromium chromium-driver python3-selenium python3-pil fonts-dejavu-core
    nsis zip python3-minimal
    # The release files: the .deb and its checks (make package, make test-package).
    dpkg-dev lintian help2man systemd man-db adduser bash-completion
    # The 32-bit tests run in a throwaway i386 Debian root with its own 32-bit Wine.
    debootstrap mount
)
# npm fetches SQLite's source for the Windows builds. Some nodejs packages carry it, Debian's
# does not: its own package is installed only when no npm is on the PATH.
npm_package=npm
if [ "${1:-}" = --list ]; then
    printf '%s\n' "${packages[@]}" "$npm_package"
    exit 0
fi
SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO=sudo
installed() { dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q "install ok installed"; }

missing=()
for p in "${packages[@]}"; do
    installed "$p" || missing+=("$p")
done
command -v npm >/dev/null || installed "$npm_package" || missing+=("$npm_package")
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    # One index out of step (a mirror of another architecture, say) must not stop an
    # install that the other indexes can satisfy: only the install itself decides.
    if ! $SUDO apt-get update -qq; then
        echo "install-deps: refreshing the package lists failed in part; installing from what was read" >&2
    fi
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

"$(dirname "$0")/sqlite-amalgamation.sh"
