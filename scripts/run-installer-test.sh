#!/usr/bin/env bash
# The Windows installer under 64-bit Wine, in a fresh private prefix:
#   scripts/run-installer-test.sh DIST VERSION CORVID_SIM
# Installs DIST/corvid-VERSION-setup.exe silently and checks what a shop gets: the installed
# DLL driving the simulated printer from cscript, corvid.exe on the PATH, the service
# registered and running, the uninstall entry. Uninstalls silently and compares the registry
# and the files with a snapshot taken before: nothing the installer added may remain but the
# data folder. Then installs the same files packed as 0.9.0, puts a file in the data folder,
# installs VERSION over it and checks the upgrade. Every check prints PASS or FAIL; the last
# line is "N passed, M failed".
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"
unset DISPLAY

root=$(cd "$(dirname "$0")/.." && pwd)
dist=$(cd "${1:?usage: $0 DIST VERSION CORVID_SIM}" && pwd)
version=${2:?usage: $0 DIST VERSION CORVID_SIM}
simulator=$(readlink -f "${3:?usage: $0 DIST VERSION CORVID_SIM}")
setup="$dist/corvid-$version-setup.exe"
work="$root/build/installer-test"
old_version=0.9.0

. "$(dirname "${BASH_SOURCE[0]}")/check-tally.sh"
finish() {
    [ -n "${sim_pid:-}" ] && kill "$sim_pid" 2>/dev/null
    end_wine_session "$WINEPREFIX"
    tally_exit
}

[ -f "$setup" ] || { fail "the installer is built ($setup missing)"; finish; }

export WINEPREFIX="$work/wineprefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
end_wine_session "$WINEPREFIX"
rm -rf "$work"
mkdir -p "$work"
timeout 120 "$wine" wineboot --init >/dev/null 2>&1
wineserver -w
drive_c="$WINEPREFIX/drive_c"
install_dir="$drive_c/Program Files/Corvid"
data_dir="$drive_c/ProgramData/Corvid"

run() { timeout 60 "$wine" "$@" 2>/dev/null | tr -d '\r'; }
# The service's printer is COM8, a port of its own.
install() { timeout 120 "$wine" "$1" /S /PORT=COM8 >/dev/null 2>&1; }
# The uninstaller hands over to a copy of itself and returns at once: the prefix's
# processes ending says it has finished.
uninstall() {
    timeout 60 "$wine" 'C:\Program Files\Corvid\uninstall.exe' /S "$@" >/dev/null 2>&1
    timeout 60 wineserver -w
}
reg_value() { # reg_value KEY NAME: the value's data
    run reg query "$1" /v "$2" | awk -v name="$2" '$1 == name { $1 = ""; $2 = ""; sub(/^ +/, ""); print }'
}
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvid'

# The registry as "key<TAB>value line" rows, without the times Wine writes beside each key,
# and the files of Program Files, the system folders and ProgramData. What Wine rewrites at
# every start is left out by name (tests/installer/registry_noise: the display driver's
# date), and so is the uninstaller's own copy in the user's Temp folder, which NSIS has
# Windows delete at the next restart. Wine's own programs register their type libraries on their first run: they run
# once before the first snapshot.
snapshot() {
    wineserver -w
    awk '/^\[/ { sub(/\] [0-9]+$/, "]"); key = $0; print key; next }
         /^#/ || /^$/ { next }
         { print key "\t" $0 }' "$WINEPREFIX/system.reg" "$WINEPREFIX/user.reg" |
        grep -v -f "$root/tests/installer/registry_noise" | sort >"$work/$1.reg"
    (cd "$drive_c" && find "Program Files" "Program Files (x86)" windows/system32 windows/syswow64 \
        ProgramData -path ProgramData/Corvid -prune -o -print 2>/dev/null) | sort >"$work/$1.files"
}

# A fresh simulated printer on COM7 of the prefix, for the VBScript host.
start_simulator() {
    [ -n "${sim_pid:-}" ] && kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
    rm -f "$WINEPREFIX/dosdevices/com7"
    (cd "$work" && exec "$simulator" --link "$WINEPREFIX/dosdevices/com7") >"$work/sim.log" 2>&1 &
    sim_pid=$!
    for _ in $(seq 50); do [ -e "$WINEPREFIX/dosdevices/com7" ] && break; sleep 0.1; done
}
drive_installed_dll() { # prints the script's PASS/FAIL lines; fails without DONE
    start_simulator
    cat "$root/tests/registration/checks.inc" "$root/tests/installer/installed_dll.vbs" >"$work/installed_dll.vbs"
    local output
    output=$(cd "$work" && CORVID_SIM_PORT=7 run cscript.exe //nologo installed_dll.vbs)
    echo "$output" | grep -E '^(PASS|FAIL)' | sed "s/^/$1: /"
    grep -qx 'PASS .*' <<<"$output" && ! grep -q '^FAIL' <<<"$output" && grep -qx DONE <<<"$output"
}

for program in "cmd.exe /c exit" "sc.exe query none" "net.exe stop none" "reg.exe query HKLM\\Software" \
    "cscript.exe //nologo none.vbs"; do
    # shellcheck disable=SC2086
    run $program >/dev/null
done
snapshot before

# A fresh install.
check "setup /S installs silently (exit status 0)" install "$setup"
for file in corvid.exe CorvidAPI.dll x86/CorvidAPI.dll uninstall.exe; do
    check "installed $file" test -f "$install_dir/$file"
done
versions=$("$root/scripts/pe-version.py" "$install_dir/corvid.exe" "$install_dir/CorvidAPI.dll" \
    "$install_dir/x86/CorvidAPI.dll" | awk '{print $(NF - 1) "/" $NF}' | sort -u)
check "the installed binaries are version $version ($versions)" test "$versions" = "$version.0/$version"
check "the 64-bit cscript creates PrinterFiscal and runs Execute through the installed DLL" \
    drive_installed_dll cscript
echo "SKIP the 32-bit cscript half: this host has no 32-bit Wine (run in the i386 root)"
path_value=$(reg_value 'HKLM\System\CurrentControlSet\Control\Session Manager\Environment' Path)
check "the system PATH holds C:\\Program Files\\Corvid" grep -qiF ';C:\Program Files\Corvid' <<<"$path_value"
check "corvid --version from the PATH prints corvid $version" \
    test "$(run cmd.exe /c corvid --version)" = "corvid $version"
service=$(run sc.exe query CorvidService)
check "the service CorvidService is registered and running (sc query)" grep -q RUNNING <<<"$service"
check "the service logs to service.log in the data folder" \
    grep -q "printer default: COM8" "$data_dir/service.log"
check "the uninstall entry names version $version" test "$(reg_value "$uninstall_key" DisplayVersion)" = "$version"
check "the uninstall entry has a quiet uninstall command" \
    test "$(reg_value "$uninstall_key" QuietUninstallString)" = '"C:\Program Files\Corvid\uninstall.exe" /S'

# Uninstalled, the prefix is as it was, but for the data folder.
uninstall
check "the uninstaller stopped the service cleanly" grep -q "corvid serve: stopped" "$data_dir/service.log"
snapshot after
check "the data folder is kept" test -f "$data_dir/journal.db"
if diff "$work/before.reg" "$work/after.reg" >"$work/registry.diff"; then
    pass "the registry is as before the install"
else
    fail "the registry is as before the install: $(grep -c '^[<>]' "$work/registry.diff") rows differ"
    head -20 "$work/registry.diff"
fi
if diff "$work/before.files" "$work/after.files" >"$work/files.diff"; then
    pass "the files are as before the install"
else
    fail "the files are as before the install"
    head -20 "$work/files.diff"
fi

# An upgrade from the same files packed as an older version.
old_stage="$work/old"
mkdir -p "$old_stage"
/usr/bin/python3 -m zipfile -e "$dist/corvid-$version-windows.zip" "$old_stage"
makensis -V1 -DVERSION=$old_version -DBIN="$old_stage" -DOUTFILE="$work/corvid-$old_version-setup.exe" \
    "$root/packaging/windows/corvid.nsi" >/dev/null
check "setup $old_version /S installs" install "$work/corvid-$old_version-setup.exe"
check "the uninstall entry names $old_version" test "$(reg_value "$uninstall_key" DisplayVersion)" = "$old_version"
echo "the shop's record" >"$data_dir/kept.txt"
check "setup $version /S installs over $old_version" install "$setup"
check "the uninstall entry names $version after the upgrade" \
    test "$(reg_value "$uninstall_key" DisplayVersion)" = "$version"
check "the data folder's file survived the upgrade" grep -qx "the shop's record" "$data_dir/kept.txt"
check "after the upgrade the installed DLL still drives the printer" drive_installed_dll upgraded
check "after the upgrade the service runs again" grep -q RUNNING <<<"$(run sc.exe query CorvidService)"
check "the PATH holds the folder once after the upgrade" test "$(reg_value \
    'HKLM\System\CurrentControlSet\Control\Session Manager\Environment' Path | grep -oi 'Program Files\\Corvid' | wc -l)" = 1

uninstall /PURGE
check "uninstall /PURGE removes the data folder" test ! -e "$data_dir"
check "uninstall /PURGE removes the install folder" test ! -e "$install_dir"
finish
