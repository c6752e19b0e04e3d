#!/usr/bin/env bash
# Puts SQLite's amalgamation (sqlite3.c, sqlite3.h) in build/deps/sqlite3 for the Windows
# builds, which cannot use the host's libsqlite3. It comes from the npm package
# better-sqlite3, which ships it, at a pinned version whose tarball must have the pinned
# SHA-256. Nothing is fetched when the folder already holds that version. The build only
# reads the folder; it never downloads.
set -euo pipefail
version=12.4.1  # SQLite 3.50.4
sha256=14398acbf00d1e8fe0a2753df7d4f15c13138e4b874f4e6e96791f65b4536d0d

root=$(cd "$(dirname "$0")/.." && pwd)
deps=$root/build/deps
target=$deps/sqlite3
tarball=$deps/better-sqlite3-$version.tgz
stamp=$target/from-tarball.sha256

if [ -f "$target/sqlite3.c" ] && [ -f "$target/sqlite3.h" ] && [ "$(cat "$stamp" 2>/dev/null)" = "$sha256" ]; then
    exit 0
fi
mkdir -p "$deps"
matches() { [ -f "$tarball" ] && echo "$sha256  $tarball" | sha256sum --check --status; }
if ! matches; then
    echo "Fetching SQLite's amalgamation: npm pack better-sqlite3@$version"
    rm -f "$tarball"
    (cd "$deps" && npm pack "better-sqlite3@$version" --cache "$deps/npm-cache" --silent >/dev/null)
    if ! matches; then
        echo "sqlite-amalgamation: $tarball does not have the pinned SHA-256 $sha256" >&2
        rm -f "$tarball"
        exit 1
    fi
fi
rm -rf "$target" "$deps/package"
# Fresh times, so that a new version is rebuilt.
tar -m -xzf "$tarball" -C "$deps" package/deps/sqlite3/sqlite3.c package/deps/sqlite3/sqlite3.h
mkdir -p "$target"
mv "$deps/package/deps/sqlite3/sqlite3.c" "$deps/package/deps/sqlite3/sqlite3.h" "$target/"
rm -rf "$deps/package"
echo "$sha256" >"$stamp"
