#!/usr/bin/env bash
# Makes the Linux release files from an existing native build; nothing is compiled:
#   DIST/corvid_VERSION_amd64.deb                 the tool, the simulator and the print service
#   DIST/corvid-VERSION-linux-x86_64-dev.tar.gz   libcorvid's headers and static libraries with
#                                                 its CMake package
#   DIST/debug/linux-x86_64/NAME.debug            the programs' debug information; the
#                                                 packaged programs are stripped and point at it
# Usage: scripts/package-debian.sh BUILD DIST [VERSION]   (VERSION: the build's by default)
set -euo pipefail
[ $# -ge 2 ] || { echo "usage: $0 BUILD DIST [VERSION]" >&2; exit 2; }
build=$(realpath "$1")
mkdir -p "$2"
dist=$(realpath "$2")
source_root=$(cd "$(dirname "$0")/.." && pwd)
packaging=$source_root/packaging/debian
version=${3:-$(sed -n 's/^CORVID_VERSION:STRING=//p' "$build/CMakeCache.txt")}
work=$build/package
debug=$dist/debug/linux-x86_64
maintainer="Corvid maintainers <maintainers@corvid.invalid>"

fail() { echo "package-debian: $*" >&2; exit 1; }

# The changelog's newest entry must be this version: a release without its entry is refused.
check_changelog() {
    local logged
    logged=$(dpkg-parsechangelog -l "$packaging/changelog" -S Version)
    [ "$logged" = "$version" ] ||
        fail "packaging/debian/changelog's newest entry is $logged, the build is $version: add an entry"
    # Dates inside the files (man pages, archives) are the release's, so a rebuild is identical.
    SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$packaging/changelog" -S Timestamp)
    export SOURCE_DATE_EPOCH
}

# Debug information goes to DEBUG/NAME.debug; the program keeps only a link to it.
split_debug() {
    local program=$1 name
    name=$(basename "$program")
    objcopy --only-keep-debug --compress-debug-sections "$program" "$debug/$name.debug"
    chmod 0644 "$debug/$name.debug"
    strip --remove-section=.comment --remove-section=.note "$program"
    objcopy --add-gnu-debuglink="$debug/$name.debug" "$program"
}

# help2man reads each program's --help; `corvid serve` gets a page of its own.
man_pages() {
    local bin=$1 man=$2
    mkdir -p "$man"
    help2man -N --version-string="$version" -o "$man/corvid.1" \
        -n "drive a fiscal printer: status, documents, reports; the print service's client" \
        "$bin/corvid"
    help2man -N --version-string="$version" -o "$man/corvid-sim.1" \
        -n "a simulated fiscal printer on a pseudo-terminal" "$bin/corvid-sim"
    help2man -N --version-string="$version" --help-option="serve --help" -o "$man/corvid-serve.1" \
        --include="$packaging/corvid-serve.h2m" \
        -n "the print service: fiscal jobs over HTTP, printed exactly once" "$bin/corvid"
    sed -i -e 's/^\.TH CORVID /.TH CORVID-SERVE /' -e 's/^corvid \\- /corvid-serve \\- /' \
        "$man/corvid-serve.1"
    gzip -9n "$man"/*.1
}

stage_files() {
    local root=$1
    rm -rf "$work/debian"
    DESTDIR=$root cmake --install "$build" --component runtime --prefix /usr >/dev/null
    if [ ! -x "$root/usr/bin/corvid" ] || [ ! -x "$root/usr/bin/corvid-sim" ]; then
        fail "$build has no corvid or corvid-sim to install: build it first"
    fi
    mkdir -p "$debug"
    split_debug "$root/usr/bin/corvid"
    split_debug "$root/usr/bin/corvid-sim"
    man_pages "$root/usr/bin" "$root/usr/share/man/man1"
    install -D -m 0644 "$packaging/corvid.service" "$root/usr/lib/systemd/system/corvid.service"
    install -D -m 0644 "$packaging/corvid.default" "$root/etc/default/corvid"
    install -D -m 0644 "$packaging/corvid.bash-completion" \
        "$root/usr/share/bash-completion/completions/corvid"
    install -D -m 0644 "$packaging/copyright" "$root/usr/share/doc/corvid/copyright"
    install -D -m 0644 "$packaging/lintian-overrides" "$root/usr/share/lintian/overrides/corvid"
    gzip -9nc "$packaging/changelog" >"$root/usr/share/doc/corvid/changelog.gz"
    chmod 0644 "$root/usr/share/doc/corvid/changelog.gz"
}

# The libraries the programs load, as package names and versions. dpkg-shlibdeps runs where
# it expects to: beside debian/control, the package's tree in debian/corvid.
shared_library_depends() {
    printf 'Source: corvid\n\nPackage: corvid\nArchitecture: amd64\n' >"$work/debian/control"
    (cd "$work" && dpkg-shlibdeps -O debian/corvid/usr/bin/corvid debian/corvid/usr/bin/corvid-sim) |
        sed -n 's/^shlibs:Depends=//p'
}

write_control() {
    local root=$1 depends size
    size=$(du -sk --apparent-size "$root" | cut -f1)
    mkdir -p "$root/DEBIAN"
    depends=$(shared_library_depends)
    [ -n "$depends" ] || fail "dpkg-shlibdeps found no libraries"
    sed -e "s/@VERSION@/$version/" -e "s/@DEPENDS@/$depends, adduser/" \
        -e "s/@SIZE@/$size/" -e "s/@MAINTAINER@/$maintainer/" \
        "$packaging/control.in" >"$root/DEBIAN/control"
    echo /etc/default/corvid >"$root/DEBIAN/conffiles"
    install -m 0755 "$packaging/postinst" "$packaging/prerm" "$packaging/postrm" "$root/DEBIAN/"
    (cd "$root" && find . -path ./DEBIAN -prune -o -type f -printf '%P\n' | LC_ALL=C sort |
        xargs md5sum) >"$root/DEBIAN/md5sums"
    chmod 0644 "$root/DEBIAN/control" "$root/DEBIAN/conffiles" "$root/DEBIAN/md5sums"
}

make_deb() {
    local root=$work/debian/corvid deb=$dist/corvid_${version}_amd64.deb
    stage_files "$root"
    write_control "$root"
    dpkg-deb --root-owner-group -Zxz --build "$root" "$deb" >/dev/null
    echo "package-debian: $deb ($(du -h "$deb" | cut -f1))"
}

# `cmake --install` of the core, debug information dropped from the static libraries.
make_dev_archive() {
    local name=corvid-$version-linux-x86_64-dev
    local prefix=$work/dev/$name archive=$dist/$name.tar.gz
    rm -rf "${work:?}/dev"
    cmake --install "$build" --component dev --prefix "$prefix" >/dev/null
    strip --strip-debug --enable-deterministic-archives "$prefix"/lib/*.a
    tar -C "$work/dev" --sort=name --owner=0 --group=0 --numeric-owner \
        --mtime="@$SOURCE_DATE_EPOCH" -cf - "$name" | gzip -9n >"$archive"
    echo "package-debian: $archive ($(du -h "$archive" | cut -f1))"
}

check_changelog
make_deb
make_dev_archive
