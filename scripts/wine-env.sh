#!/usr/bin/env bash
# Runs a command with a private Wine prefix under the given build folder:
#   scripts/wine-env.sh BUILD_DIR command args...
# The prefix is created on first use; Wine's own debug output is silenced.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"
build_dir=$(cd "$1" && pwd)
shift
WINEPREFIX=$(wine_prefix "$build_dir")
export WINEPREFIX
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    "$wine" wineboot --init >/dev/null 2>&1 || true
    wineserver -w
fi
status=0
"$@" || status=$?
exit $status
