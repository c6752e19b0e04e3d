# Sourced by the Wine scripts: $wine is the 64-bit loader. Debian's `wine` runs the 32-bit
# loader whenever 32-bit Wine is installed, and builtin programs such as regsvr32 and
# cscript would then work in the 32-bit view of the registry, beside the 64-bit DLL.
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=wine
export WINELOADER=$wine
# Debian's winepath runs the default loader too: in a prefix made without 32-bit Wine that
# loader cannot start. Windows paths come from the 64-bit one as well.
winepath() { "$wine" winepath.exe "$@"; }
# Ends the Wine session of prefix $1, if one is running. Its desktop keeps the display the
# session started with: a run that needs a display (or none) must not join one that was
# started otherwise, say by the test run just before it.
end_wine_session() {
    WINEPREFIX="$1" wineserver -k >/dev/null 2>&1
    WINEPREFIX="$1" wineserver -w >/dev/null 2>&1
    return 0
}
# Uses the build's private prefix (made once by wine-env.sh) from here on, in a session of
# its own, quietly. $1: the build folder.
enter_wine_prefix() {
    end_wine_session "$1/wineprefix"
    timeout 300 "$(dirname "${BASH_SOURCE[0]}")/wine-env.sh" "$1" true || true
    export WINEPREFIX="$1/wineprefix"
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml="
}
