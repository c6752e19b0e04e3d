#!/usr/bin/env bash
# The Windows release files from the builds `make test` makes:
#   scripts/package-windows.sh BUILD64 BUILD32 DIST VERSION
# Writes DIST/corvid-VERSION-setup.exe (the NSIS installer) and DIST/corvid-VERSION-windows.zip
# with corvid.exe and both CorvidAPI.dll stripped, and their debug information in
# DIST/debug (corvid.exe.debug, CorvidAPI-x64.dll.debug, CorvidAPI-x86.dll.debug), each
# binary naming its file by a debug link. Refuses binaries whose version resource is not
# VERSION: a stale build must not ship under a new number.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build64=$(cd "${1:?usage: $0 BUILD64 BUILD32 DIST VERSION}" && pwd)
build32=$(cd "${2:?usage: $0 BUILD64 BUILD32 DIST VERSION}" && pwd)
mkdir -p "${3:?usage: $0 BUILD64 BUILD32 DIST VERSION}/debug"
dist=$(cd "$3" && pwd)
version=${4:?usage: $0 BUILD64 BUILD32 DIST VERSION}

stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
mkdir -p "$stage/x64" "$stage/x86"

# split BINARY STAGED DEBUG_NAME TOOL_PREFIX: the stripped copy at STAGED, its debug
# information in DIST/debug/DEBUG_NAME.
split() {
    local binary=$1 staged=$2 debug="$dist/debug/$3" tools=$4
    [ -f "$binary" ] || { echo "package-windows: $binary is not built" >&2; exit 1; }
    local found
    found=$("$root/scripts/pe-version.py" "$binary" | awk '{print $2}')
    if [ "$found" != "$version.0" ]; then
        echo "package-windows: $binary is version $found, not $version (rebuild it)" >&2
        exit 1
    fi
    "$tools-objcopy" --only-keep-debug "$binary" "$debug"
    "$tools-strip" --strip-all -o "$staged" "$binary"
    # The link names the file only: a debugger looks for it beside the binary.
    (cd "$dist/debug" && "$tools-objcopy" --add-gnu-debuglink="$3" "$staged")
}

split "$build64/tools/corvid/corvid.exe" "$stage/corvid.exe" corvid.exe.debug x86_64-w64-mingw32
split "$build64/src/registration/CorvidAPI.dll" "$stage/x64/CorvidAPI.dll" CorvidAPI-x64.dll.debug \
    x86_64-w64-mingw32
split "$build32/src/registration/CorvidAPI.dll" "$stage/x86/CorvidAPI.dll" CorvidAPI-x86.dll.debug \
    i686-w64-mingw32
# Notepad reads CRLF.
sed "s/@VERSION@/$version/g; s/\$/\r/" "$root/packaging/windows/README.txt" >"$stage/README.txt"

zip_file="$dist/corvid-$version-windows.zip"
rm -f "$zip_file"
(cd "$stage" && zip -q -X "$zip_file" corvid.exe x64/CorvidAPI.dll x86/CorvidAPI.dll README.txt)
makensis -V2 -WX -DVERSION="$version" -DBIN="$stage" -DOUTFILE="$dist/corvid-$version-setup.exe" \
    "$root/packaging/windows/corvid.nsi" >/dev/null

# The sizes the README promises: each binary 2 MB or less, the installer 6 MB or less.
for file in "$stage/corvid.exe" "$stage/x64/CorvidAPI.dll" "$stage/x86/CorvidAPI.dll" \
    "$zip_file" "$dist/corvid-$version-setup.exe"; do
    printf '%9d  %s\n' "$(stat -c %s "$file")" "${file#"$stage"/}"
done
