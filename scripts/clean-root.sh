# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # $roots is for the functions in roots.sh
# To be sourced in the top folder, as root: clean systems of the Debian release $release in $scratch,
# with nothing but git, sudo, a user who may use it, and a clone of these sources.
# Downloads are kept in build/releases, everything else is thrown away.
. scripts/packages.sh
. tests/sessions/roots.sh

# Starts the script again in namespaces of its own: its mounts and processes end with it, however it
# ends, and so does the folder $scratch.
throw_away_later() {
    scratch=${TOVLA_SCRATCH:-}
    [ -z "$scratch" ] || return 0
    [ "$(id -u)" = 0 ] || { echo "only root can make a clean system" >&2; exit 1; }
    # shellcheck disable=SC2086 # a list of names
    need $session_packages git
    # Not in /tmp, which may be in memory: a system with everything for the tests has 4 GB.
    scratch=$(mktemp -d -p "${TMPDIR:-/var/tmp}" tovla-XXXXXX)
    trap 'kill -KILL $child 2>/dev/null || true; wait; rm -rf --one-file-system "$scratch"' EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    TOVLA_SCRATCH=$scratch unshare --mount --pid --fork --kill-child --mount-proc "scripts/${0##*/}" "$@" <&0 &
    child=$!
    status=0
    wait $child || status=$?
    exit $status
}

fill_clean() {
    local root=$1
    fill_minimal "$root" ca-certificates git sudo
    in_root "$root" useradd --create-home --shell /bin/bash ann
    echo 'ann ALL=(ALL) NOPASSWD: ALL' >"$root/etc/sudoers.d/ann"
    # Names that do not resolve delay sudo, and the host's are not known here.
    printf '127.0.0.1 localhost %s\n' "$(hostname)" >"$root/etc/hosts"
}

# Makes a clean system at $scratch/NAME and prints its folder.
make_clean_root() {
    local root=$scratch/$1
    roots=$PWD/build/releases
    if [ ! -d "$scratch/clean" ]; then
        fill_clean "$scratch/clean"
    fi
    cp -a "$scratch/clean" "$root"
    mount --bind "$roots/$release/downloads" "$root/var/cache/apt/archives"
    mount -t proc proc "$root/proc"
    mount -t sysfs -o ro sysfs "$root/sys"
    mount_devices "$root"
    echo "$root"
}

# Frees the space of a system before the script ends.
close_root() {
    umount --recursive --lazy "$1/dev" "$1/proc" "$1/sys" "$1/var/cache/apt/archives"
    rm -rf --one-file-system "$1"
}

# Prints the folder of the user's home as seen from outside the system.
home_of() {
    echo "$1$(in_root "$1" bash -c "echo ~$2")"
}

# in_clone ROOT USER COMMAND… runs a command in a clone of HEAD in the user's home.
in_clone() {
    local root=$1 user=$2 home
    shift 2
    home=$(home_of "$root" "$user")
    if [ ! -d "$home/tovla" ]; then
        git clone --quiet --no-hardlinks --no-checkout . "$home/tovla"
        git -C "$home/tovla" checkout --quiet --detach "$(git rev-parse HEAD)"
        in_root "$root" chown -R "$user:" "${home#"$root"}/tovla"
    fi
    chroot "$root" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        HOME="${home#"$root"}" USER="$user" LOGNAME="$user" LC_ALL=C.UTF-8 \
        setpriv --reuid="$user" --regid="$user" --init-groups \
        bash -c 'cd ~/tovla && exec "$@"' bash "$@"
}
