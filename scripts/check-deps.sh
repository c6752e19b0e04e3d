#!/usr/bin/env bash
# Checks that every program and file the build and the tests use comes from a package named
# in the list of scripts/install-deps.sh (essential packages excepted), so that a package installed by hand
# on a developer's machine cannot hide its absence from the list. Exits 1 with one line per
# missing package.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# CORVID_PACKAGE_LIST names a file with another list, one package a line (to try the check).
if [ -n "${CORVID_PACKAGE_LIST:-}" ]; then
    mapfile -t listed < <(grep -v '^\s*$' "$CORVID_PACKAGE_LIST")
else
    mapfile -t listed < <("$here/install-deps.sh" --list)
fi

programs=(cmake ctest make gcc g++ clang-format
          x86_64-w64-mingw32-gcc-posix x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-windres
          i686-w64-mingw32-gcc-posix i686-w64-mingw32-g++-posix i686-w64-mingw32-windres
          i686-w64-mingw32-objdump
          widl wine wineserver winepath socat curl xvfb-run Xvfb xauth timeout ser2net clang xwd npm
          node chromium chromedriver makensis zip
          dpkg-shlibdeps dpkg-parsechangelog lintian help2man systemd-analyze man adduser
          debootstrap chroot unshare)
files=(/usr/src/googletest/CMakeLists.txt /usr/include/gtest/gtest.h /usr/include/gmock/gmock.h
       /usr/include/benchmark/benchmark.h /usr/include/nlohmann/json.hpp /usr/include/CLI/CLI.hpp
       /usr/include/boost/beast.hpp /usr/include/sqlite3.h
       /usr/bin/convert /usr/include/wine/wine/windows/oaidl.idl
       /usr/lib/x86_64-linux-gnu/wine/x86_64-windows/stdole2.tlb
       /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-x86_64.a
       /usr/lib/python3/dist-packages/selenium/__init__.py
       /usr/lib/python3/dist-packages/PIL/__init__.py /usr/bin/python3
       /usr/share/bash-completion/bash_completion)

is_listed() {
    local p
    for p in "${listed[@]}"; do [ "$p" = "$1" ] && return 0; done
    return 1
}

# The paths to look up for `path`: itself and each link on the way to its target.
steps() {
    local path=$1 step
    for step in "$path" "$(readlink "$path" 2>/dev/null)" "$(readlink -f "$path" 2>/dev/null)"; do
        [ -n "$step" ] || continue
        [[ $step == /* ]] || step="$(dirname "$path")/$step"
        echo "$step"
    done | sort -u
}

failures=0
declare -A wanted  # path to look up -> what it stands for
for program in "${programs[@]}"; do
    if path=$(command -v "$program"); then
        while IFS= read -r step; do wanted[$step]="$program"; done < <(steps "$path")
    else
        echo "check-deps: $program is not installed (run scripts/install-deps.sh)"
        failures=$((failures + 1))
    fi
done
for file in "${files[@]}"; do
    if [ -e "$file" ]; then
        while IFS= read -r step; do wanted[$step]="$file"; done < <(steps "$file")
    else
        echo "check-deps: $file is missing (run scripts/install-deps.sh)"
        failures=$((failures + 1))
    fi
done

# One dpkg call for every path: "pkg1, pkg2:arch: /path" per owned path.
declare -A owners found
while IFS= read -r line; do
    path=${line##*: }
    what=${wanted[$path]:-}
    [ -n "$what" ] || continue
    for owner in $(sed 's/: .*//; s/,/ /g' <<<"$line"); do
        owner=${owner%%:*}
        owners[$what]="${owners[$what]:-} $owner"
        if is_listed "$owner" ||
            [ "$(dpkg-query -W -f='${Essential}' "$owner" 2>/dev/null)" = yes ]; then
            found[$what]=yes
        fi
    done
done < <(dpkg -S "${!wanted[@]}" 2>/dev/null)

for what in $(printf '%s\n' "${wanted[@]}" | sort -u); do
    [ -n "${found[$what]:-}" ] && continue
    if [ -z "${owners[$what]:-}" ]; then
        echo "check-deps: $what belongs to no installed package"
    else
        echo "check-deps: $what comes from package$(tr ' ' '\n' <<<"${owners[$what]}" | sort -u | tr '\n' ' ' | sed 's/ $//'), which scripts/install-deps.sh does not list"
    fi
    failures=$((failures + 1))
done
[ "$failures" -eq 0 ] || exit 1
