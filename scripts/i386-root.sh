#!/usr/bin/env bash
# The throwaway i386 Debian root with 32-bit Wine (build/i386-root) that the 32-bit DLL is
# tested in, since 32-bit Wine cannot always be installed beside the host's libraries:
#   scripts/i386-root.sh make              makes the root, or keeps it if its recipe is unchanged
#   scripts/i386-root.sh run CMD ARGS...   runs CMD on this host with the root's Wine as `wine`
#   scripts/i386-root.sh inside CMD ARGS...  runs CMD inside the root, in the same folder
#   scripts/i386-root.sh remove            deletes the root
# `--root DIR` before the command picks another root; `--as-is` uses it as it stands
# (the recipe installs Wine so). run and inside make the root first
# when needed, bind /proc, /dev, /dev/pts, /dev/shm and the repository into it (the
# repository at its own path, so that every path under it, build folders and Wine prefixes
# alike, is the same inside and out, and a pseudo-terminal made outside serves as a COM port
# inside), and unmount them when CMD ends, also on failure. The mounts live in a mount
# namespace of the run's own: a run killed outright leaves none behind on the host, so
# deleting build/ can never reach through them.
# With run, `wine` and `wineserver` are scripts/i386-bin's, which enter the root, and
# CORVID_I386_ROOT names it (scripts/wine-loader.sh then gives each build folder a 32-bit
# prefix under the root); the simulator and the test runners stay on the host.
# Where debootstrap cannot run (not root, no mounts, the mirror unreachable) run says why
# in one line and runs CMD on the host as it is; inside and make fail.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
repo=$(cd "$here/.." && pwd)
root=${CORVID_I386_ROOT:-$repo/build/i386-root}
if [ "${1:-}" = --root ]; then
    root=$(realpath -m "${2:?--root DIR}")
    shift 2
fi
as_is=
if [ "${1:-}" = --as-is ]; then
    as_is=yes
    shift
fi
recipe=$here/i386-root-recipe.sh
stamp=$root/.corvid-recipe
command=${1:-make}
shift || true
# The mirror the host installs from: the main archive of the host's own release.
mirror=${CORVID_I386_MIRROR:-}

host_mirror() {
    local codename mirrors
    codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    mirrors=$(
        cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null |
            awk -v suite="$codename" '$1 == "deb" {
                i = 2; if ($i ~ /^\[/) { while ($i !~ /\]$/) i++; i++ }
                if ($(i + 1) == suite) print $i }' || true
        cat /etc/apt/sources.list.d/*.sources 2>/dev/null |
            awk -v suite="$codename" 'BEGIN { RS = "" } {
                types = uris = suites = ""
                n = split($0, lines, "\n")
                for (l = 1; l <= n; l++) {
                    split(lines[l], f, /[ \t]+/)
                    if (f[1] == "Types:") types = lines[l]
                    if (f[1] == "URIs:") uris = f[2]
                    if (f[1] == "Suites:") suites = " " lines[l] " "
                }
                if (types ~ /[ \t]deb([ \t]|$)/ && index(suites, " " suite " ")) print uris }' || true
    )
    # The first found; read whole, since head leaving early would fail the pipeline.
    echo "${mirrors%%$'\n'*}"
}

# Why debootstrap cannot run here; nothing when it can.
why_not() {
    if [ "$(id -u)" -ne 0 ]; then
        echo "debootstrap needs root (running as $(id -un))"
    elif ! command -v debootstrap >/dev/null; then
        echo "debootstrap is not installed (scripts/install-deps.sh)"
    elif ! unshare --mount true 2>/dev/null; then
        echo "this system allows no mounts here (unshare --mount failed)"
    elif ! curl -fsSI --max-time 20 -o /dev/null "$mirror/dists/$("$recipe" --suite)/Release" 2>/dev/null; then
        echo "the mirror $mirror cannot be reached"
    fi
}

recipe_hash() { sha256sum <"$recipe" | cut -d' ' -f1; }
is_current() { [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$(recipe_hash)" ]; }

# Deletes a root, refusing while anything is mounted below it in this namespace.
remove_tree() {
    [ -e "$1" ] || return 0
    if awk -v dir="$1/" 'index($5, dir) == 1 { found = 1 } END { exit !found }' /proc/self/mountinfo; then
        echo "i386 root: $1 has mounts below it; not deleted" >&2
        return 1
    fi
    rm -rf --one-file-system "$1"
}

# Takes the root for this run; held by the run's processes until they end.
lock_root() {
    mkdir -p "$(dirname "$root")"
    exec {lock_fd}>"$root.lock"
    flock "$lock_fd"
}

# Makes the root unless its recipe is unchanged. Status 3: debootstrap cannot run here.
make_root() {
    is_current && return 0
    [ -n "$mirror" ] || mirror=$(host_mirror)
    [ -n "$mirror" ] || mirror=http://deb.debian.org/debian
    local reason start
    reason=$(why_not)
    if [ -n "$reason" ]; then
        echo "i386 root: not made: $reason"
        return 3
    fi
    remove_tree "$root.new" && remove_tree "$root"
    echo "i386 root: making $root from $mirror"
    start=$(date +%s)
    "$recipe" "$root.new" "$mirror" || {
        echo "i386 root: making it failed"
        return 1
    }
    recipe_hash >"$root.new/.corvid-recipe"
    mkdir -p "$root.new/wineprefixes"
    mv "$root.new" "$root"
    echo "i386 root: made in $(($(date +%s) - start)) s"
}

mounted_here() { [ -e "$root/proc/self" ]; }

mount_root() {
    local dir
    for dir in proc dev dev/pts dev/shm; do
        [ -d "/$dir" ] && [ -d "$root/$dir" ] && mount --bind "/$dir" "$root/$dir"
    done
    mkdir -p "$root$repo"
    mount --bind "$repo" "$root$repo"
}

# Stops what the run left running in the root (Wine servers), then unmounts.
unmount_root() {
    local prefix process
    # Best effort, keeping the command's status: a prefix without a server is no failure.
    set +e
    for prefix in "$root"/wineprefixes/*/; do
        WINEPREFIX=${prefix%/} run_inside wineserver -k >/dev/null 2>&1
    done
    for process in /proc/[0-9]*; do
        [ "$(readlink "$process/root" 2>/dev/null)" = "$root" ] && kill -9 "${process#/proc/}" 2>/dev/null
    done
    for dir in "$repo" /dev/shm /dev/pts /dev /proc; do
        mountpoint -q "$root$dir" && { umount "$root$dir" || umount -l "$root$dir"; }
    done
}

root_path=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin
run_inside() { chroot "$root" /usr/bin/env -C "$PWD" PATH="$root_path" "$@"; }

# In the run's own mount namespace: mounts, CMD, unmounts.
in_namespace() {
    local mode=$1 status=0
    shift
    trap unmount_root EXIT
    trap 'exit 130' INT TERM
    mount_root
    export CORVID_I386_ROOT=$root
    if [ "$mode" = run ]; then
        PATH="$here/i386-bin:$PATH" "$@" || status=$?
    else
        run_inside "$@" || status=$?
    fi
    return "$status"
}

enter() {
    local mode=$1 status=0
    shift
    [ $# -gt 0 ] || { echo "usage: $0 $mode CMD ARGS..." >&2; exit 2; }
    # Already in a run on this root: its mounts serve.
    if [ "${CORVID_I386_ROOT:-}" = "$root" ] && mounted_here; then
        if [ "$mode" = run ]; then exec env PATH="$here/i386-bin:$PATH" "$@"; fi
        # exec: a timeout or kill aimed at the caller reaches the program itself.
        exec chroot "$root" /usr/bin/env -C "$PWD" PATH="$root_path" "$@"
    fi
    # Without root nothing can be made, mounted or entered (nor the lock beside it written).
    if [ "$(id -u)" -ne 0 ]; then
        echo "i386 root: not made: debootstrap needs root (running as $(id -un))"
        status=3
    else
        lock_root
        [ -n "$as_is" ] || make_root || status=$?
    fi
    if [ "$status" -eq 3 ] && [ "$mode" = run ]; then
        exec "$@"
    fi
    [ "$status" -eq 0 ] || exit 1
    exec unshare --mount --propagation private -- "$0" --root "$root" __namespace "$mode" "$@"
}

case "$command" in
    make)
        lock_root
        make_root
        ;;
    run | inside) enter "$command" "$@" ;;
    __namespace) in_namespace "$@" ;;
    remove)
        lock_root
        remove_tree "$root.new" && remove_tree "$root"
        ;;
    *)
        echo "usage: $0 [--root DIR] make|run CMD...|inside CMD...|remove" >&2
        exit 2
        ;;
esac
