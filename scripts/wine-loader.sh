# Sourced by the Wine scripts: $wine is the 64-bit loader. Debian's `wine` runs the 32-bit
# loader whenever 32-bit Wine is installed, and builtin programs such as regsvr32 and
# cscript would then work in the 32-bit view of the registry, beside the 64-bit DLL.
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=wine
export WINELOADER=$wine
# In the i386 root (scripts/i386-root.sh run) `wine` is the root's 32-bit Wine, which finds
# its own loader.
if [ -n "${CORVID_I386_ROOT:-}" ]; then
    wine=wine
    unset WINELOADER
fi
# Debian's winepath runs the default loader too: in a prefix made without 32-bit Wine that
# loader cannot start. Windows paths come from the 64-bit one as well.
winepath() { "$wine" winepath.exe "$@"; }
# The Wine prefix of build folder $1: in the i386 root a 32-bit one of the root's own, at a
# path that is the same inside the root and out.
wine_prefix() {
    if [ -n "${CORVID_I386_ROOT:-}" ]; then
        echo "$CORVID_I386_ROOT/wineprefixes/$(basename "$1")"
    else
        echo "$1/wineprefix"
    fi
}
# The folder of the programs that host DLL $1 (regsvr32, cscript): SysWOW64's for a 32-bit
# DLL in a 64-bit prefix, the system's own otherwise (a 32-bit prefix has no SysWOW64).
# Expects WINEPREFIX. The objdump output is read whole: under pipefail, grep -q leaving
# early could fail the pipeline.
host_programs() {
    local objdump
    objdump=$(command -v x86_64-w64-mingw32-objdump || command -v i686-w64-mingw32-objdump)
    if [ -n "$objdump" ] && [[ "$("$objdump" -f "$1")" == *"file format pei-i386"* ]] &&
        [ -d "$WINEPREFIX/drive_c/windows/syswow64" ]; then
        echo 'C:\windows\syswow64\'
    else
        echo 'C:\windows\system32\'
    fi
}
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
    end_wine_session "$(wine_prefix "$1")"
    timeout 300 "$(dirname "${BASH_SOURCE[0]}")/wine-env.sh" "$1" true || true
    WINEPREFIX=$(wine_prefix "$1")
    export WINEPREFIX
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml="
}
