#!/usr/bin/env bash
# Checks the 32-bit CorvidAPI.dll, the one VB6 programs and 32-bit Office load:
#   scripts/check-dll32.sh BUILD_DIR32 [CORVID_SIM [BUILD_DIR64]]
# First what can be seen in the file itself: an i386 image, the four entry points exported
# by the plain names regsvr32 and COM look up, and imports from Windows' own DLLs only (no
# MinGW runtime DLL to ship beside it). Then, under 32-bit Wine, the unit tests of the
# 32-bit build and the automation tests (scripts/run-automation-tests.sh). That Wine is the
# i386 root's when run through scripts/i386-root.sh run, else the host's wine32:i386 beside
# wine64; without either, one line says they were skipped and why. Given the 64-bit build
# too, and on the host's Wine (the root's has no 64-bit loader), both are registered in
# the 32-bit build's prefix, as on a machine with 32-bit and 64-bit hosts: each host must find its own build,
# and unregistering one must leave the other usable. The last line is "N passed, M failed".
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"

build_dir=$(cd "${1:?usage: $0 BUILD_DIR32 [CORVID_SIM [BUILD_DIR64]]}" && pwd)
simulator=${2:-}
[ -n "$simulator" ] && [ -e "$simulator" ] && simulator=$(cd "$(dirname "$simulator")" && pwd)/$(basename "$simulator")
build64=${3:-}
root=$(cd "$(dirname "$0")/.." && pwd)
dll="$build_dir/src/registration/CorvidAPI.dll"

. "$(dirname "${BASH_SOURCE[0]}")/check-tally.sh"
finish() {
    tally_exit
}

objdump=
for candidate in i686-w64-mingw32-objdump x86_64-w64-mingw32-objdump; do
    if command -v "$candidate" >/dev/null; then
        objdump=$candidate
        break
    fi
done
if [ -z "$objdump" ]; then
    fail "a MinGW objdump is installed (binutils-mingw-w64-i686)"
    finish
fi
if [ ! -f "$dll" ]; then
    fail "CorvidAPI.dll is built ($dll missing)"
    finish
fi

if "$objdump" -f "$dll" | grep -q "file format pei-i386"; then
    pass "CorvidAPI.dll is a 32-bit (pei-i386) image"
else
    fail "CorvidAPI.dll is a 32-bit (pei-i386) image: $("$objdump" -f "$dll" | grep -o 'file format .*')"
fi

headers=$("$objdump" -p "$dll")
# The export table's name list: "[   0] +base[   1] 0000 DllCanUnloadNow".
exports=$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/p' <<<"$headers" |
    sed -n 's/^\s*\[\s*[0-9]*\]\s*\(+base\[\s*[0-9]*\]\s*[0-9a-f]*\s*\)\?//p')
echo "exports: $(tr '\n' ' ' <<<"$exports")"
for entry in DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer; do
    if grep -qx "$entry" <<<"$exports"; then
        pass "$entry is exported by its plain name"
    else
        fail "$entry is exported by its plain name"
    fi
done

imports=$(sed -n 's/^\s*DLL Name: //p' <<<"$headers" | sort -fu)
echo "imports: $(tr '\n' ' ' <<<"$imports")"
# Windows' own DLLs, and the API sets newer toolchains name instead of msvcrt.
system_dll='^((kernel32|user32|gdi32|advapi32|shell32|ole32|oleaut32|ws2_32|msvcrt|comdlg32|comctl32|api-ms-win-[a-z0-9-]+)\.dll|winspool\.drv)$'
foreign=$(grep -viE "$system_dll" <<<"$imports" | grep -v '^$')
runtime=$(grep -iE '^(libgcc_s|libstdc\+\+|libwinpthread)' <<<"$imports")
if [ -z "$runtime" ]; then
    pass "no MinGW runtime DLL is imported"
else
    fail "no MinGW runtime DLL is imported: $(tr '\n' ' ' <<<"$runtime")"
fi
if [ -z "$foreign" ]; then
    pass "every import is a Windows system DLL"
else
    fail "every import is a Windows system DLL: $(tr '\n' ' ' <<<"$foreign")"
fi

# 32-bit Wine: the i386 root's (scripts/i386-root.sh run), or the i386 loader beside
# wine64, which SysWOW64's programs run on.
reason=
if [ -n "${CORVID_I386_ROOT:-}" ]; then
    echo "32-bit Wine of the i386 root $CORVID_I386_ROOT"
elif ! command -v wine >/dev/null; then
    reason="wine is not installed"
elif [ ! -x /usr/lib/wine/wine ] && [ ! -d /usr/lib/i386-linux-gnu/wine ]; then
    reason="32-bit Wine (wine32:i386) is not installed and no i386 root serves (scripts/i386-root.sh)"
fi
if [ -n "$reason" ]; then
    echo "32-bit automation tests skipped: $reason"
    finish
fi

echo "== 32-bit unit tests under Wine"
if CORVID_SIM=$simulator "$root/scripts/wine-env.sh" "$build_dir" \
    ctest --test-dir "$build_dir" --output-on-failure >"$build_dir/ctest32.log" 2>&1; then
    pass "the unit tests pass in the 32-bit build ($(grep -o '[0-9]*% tests passed.*' "$build_dir/ctest32.log" | tail -n 1))"
else
    tail -n 40 "$build_dir/ctest32.log"
    fail "the unit tests pass in the 32-bit build (see $build_dir/ctest32.log)"
fi

echo "== 32-bit automation tests (32-bit regsvr32 and cscript)"
log="$build_dir/automation-tests32.log"
"$root/scripts/run-automation-tests.sh" "$build_dir" ${simulator:+"$simulator"} | tee "$log"
summary=$(tail -n 1 "$log")
if [[ "$summary" =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
    passed=$((passed + BASH_REMATCH[1]))
    failed=$((failed + BASH_REMATCH[2]))
else
    fail "the 32-bit automation tests ran to their end"
fi
[ -n "$build64" ] || finish
if [ -n "${CORVID_I386_ROOT:-}" ]; then
    echo "both builds side by side: not checked, the i386 root's Wine is 32-bit only (the" \
        "file, unit and automation checks above are the ones that apply)"
    finish
fi

echo "== both builds registered in one prefix"
dll64="$(cd "$build64" && pwd)/src/registration/CorvidAPI.dll"
if [ ! -f "$dll64" ]; then
    fail "the 64-bit CorvidAPI.dll is built ($dll64 missing)"
    finish
fi
WINEPREFIX=$(wine_prefix "$build_dir")
export WINEPREFIX
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
both="$build_dir/both-builds"
rm -rf "$both"
mkdir -p "$both"
cat "$root/tests/registration/checks.inc" "$root/tests/registration/registration.vbs" \
    >"$both/registration.vbs"
# The DLL serving PrinterFiscal, as the host reading it sees the registry.
echo 'WScript.Echo CreateObject("WScript.Shell").RegRead("HKCR\CLSID\{F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC}\InprocServer32\")' \
    >"$both/served-by.vbs"
dll32_windows=$(winepath -w "$dll" 2>/dev/null)
dll64_windows=$(winepath -w "$dll64" 2>/dev/null)
register32() { timeout 120 "$wine" 'C:\windows\syswow64\regsvr32.exe' /s "$@" "$dll32_windows" >/dev/null 2>&1; }
register64() { timeout 120 "$wine" 'C:\windows\system32\regsvr32.exe' /s "$@" "$dll64_windows" >/dev/null 2>&1; }
host32() { (cd "$both" && timeout 120 "$wine" 'C:\windows\syswow64\cscript.exe' //nologo "$1" 2>/dev/null | tr -d '\r'); }
host64() { (cd "$both" && timeout 120 "$wine" 'C:\windows\system32\cscript.exe' //nologo "$1" 2>/dev/null | tr -d '\r'); }
# registration.vbs passes in full: every check PASS, and DONE at its end.
# shellcheck disable=SC2317 # called through check
clean() { local output; output=$("$1" registration.vbs); grep -qx DONE <<<"$output" && ! grep -q '^FAIL' <<<"$output"; }

register32 && register64
check "a 32-bit host finds the 32-bit build" [ "$(host32 served-by.vbs)" = "$dll32_windows" ]
check "a 64-bit host finds the 64-bit build" [ "$(host64 served-by.vbs)" = "$dll64_windows" ]
check "registration.vbs passes in the 32-bit host with both registered" clean host32
check "registration.vbs passes in the 64-bit host with both registered" clean host64
register32 /u
check "the 64-bit build stays usable when the 32-bit one is unregistered" clean host64
register32 && register64 /u
check "the 32-bit build stays usable when the 64-bit one is unregistered" clean host32
finish
