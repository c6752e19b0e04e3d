#!/usr/bin/env bash
# Runs one Windows program under Wine (the emulator of the cross build's tests).
# Expects WINEPREFIX from scripts/wine-env.sh.
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"
export WINEDEBUG=${WINEDEBUG:--all}
exec "$wine" "$@"
