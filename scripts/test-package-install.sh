#!/usr/bin/env bash
# Installs the .deb with `dpkg -i` on this very system, but in a private mount namespace
# whose /etc, /usr and /var are overlays thrown away at the end: the maintainer scripts run
# for real (the user, the state folder, the unit enabled) and the host is left untouched.
# Then a token is made as the README says, and the package is purged.
# Usage: scripts/test-package-install.sh DEB SCRATCH   (as root: mounts need it)
set -uo pipefail
[ $# -eq 2 ] || { echo "usage: $0 DEB SCRATCH" >&2; exit 2; }
deb=$(realpath "$1")
scratch=$(realpath -m "$2")

failures=0
pass() { echo "PASS $1"; }
fail() { echo "FAIL $1"; failures=$((failures + 1)); }
check() {
    local what=$1
    shift
    if "$@"; then pass "$what"; else fail "$what"; fi
}

installed() { dpkg -i "$deb" >"$scratch/dpkg.log" 2>&1 || { cat "$scratch/dpkg.log"; false; }; }
service_user() {
    getent passwd _corvid | grep -q ':/var/lib/corvid:/usr/sbin/nologin$' &&
        id -nG _corvid | tr ' ' '\n' | grep -qx dialout &&
        [ "$(stat -c '%U:%G %a' /var/lib/corvid)" = "_corvid:_corvid 750" ]
}
unit_enabled() {
    [ "$(readlink -f /etc/systemd/system/multi-user.target.wants/corvid.service)" = \
        /usr/lib/systemd/system/corvid.service ]
}
token_made() {
    runuser -u _corvid -- corvid token add till-1 --data /var/lib/corvid | grep -Eqx '[0-9a-f]{64}' &&
        runuser -u _corvid -- corvid token list --data /var/lib/corvid | grep -q till-1
}
purged_keeps_journal() {
    dpkg --purge corvid >>"$scratch/dpkg.log" 2>&1 || { cat "$scratch/dpkg.log"; return 1; }
    [ ! -e /usr/bin/corvid ] && [ ! -e /etc/default/corvid ] &&
        [ ! -e /etc/systemd/system/multi-user.target.wants/corvid.service ] &&
        [ -n "$(ls -A /var/lib/corvid)" ]
}

mount_overlays() {
    local dir
    for dir in etc usr var; do
        mkdir -p "$scratch/$dir/upper" "$scratch/$dir/work"
        mount -t overlay overlay \
            -o "lowerdir=/$dir,upperdir=$scratch/$dir/upper,workdir=$scratch/$dir/work" "/$dir" ||
            return 1
    done
}

# Inside the namespace.
run_checks() {
    mount_overlays || { echo "FAIL overlays over /etc, /usr and /var (mount refused)"; return 1; }
    if check "dpkg -i installs the .deb and runs its maintainer scripts" installed; then
        check "postinst made user _corvid (group dialout) and /var/lib/corvid, mode 0750" \
            service_user
        check "postinst enabled corvid.service for multi-user.target" unit_enabled
        check "a token made as _corvid is in the journal of /var/lib/corvid" token_made
        check "dpkg --purge removes the files and the unit's link, keeps the journal" \
            purged_keeps_journal
    fi
    [ "$failures" -eq 0 ]
}

if [ -n "${CORVID_IN_OVERLAY:-}" ]; then
    run_checks
else
    rm -rf "$scratch" && mkdir -p "$scratch"
    CORVID_IN_OVERLAY=1 unshare --mount --propagation private "$0" "$deb" "$scratch"
    status=$?
    rm -rf "$scratch"
    exit $status
fi
