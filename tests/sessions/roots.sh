# SPDX-License-Identifier: MIT
# To be sourced: Debian systems in folders, created once and kept in $roots. Each release has a base.
# Each desktop and the build have an overlay on top of it, and the changes of a run stay in memory.
# The caller is root, in its own mount namespace, and sets $release.
# shellcheck shell=bash disable=SC2154,SC2034 # $roots and $release are the caller's

base_packages="systemd systemd-sysv dbus dbus-user-session libpam-systemd libnss-systemd polkitd
    iproute2 procps xvfb xauth xdotool imagemagick x11-utils x11-xserver-utils xterm wmctrl xclip
    python3-dbus python3-gi python3-pil gir1.2-atspi-2.0 at-spi2-core libglib2.0-bin dconf-gsettings-backend
    libgl1-mesa-dri libegl1 libegl-mesa0 libgles2 xkb-data locales-all fonts-cantarell fonts-dejavu-core
    ca-certificates"
# GTK and Qt desktops expect SVG support, but no package depends on it.
common_packages="librsvg2-common hicolor-icon-theme gnome-themes-extra"

# Runs a command and shows its output only if it fails.
quietly() {
    "$@" >"$scratch/log" 2>&1 || { tail -n 40 "$scratch/log" >&2; return 1; }
}

# The mirror that this machine gets its own packages from.
find_mirror() {
    # shellcheck disable=SC2016 # the fields are for apt to expand
    apt-get indextargets --format '$(REPO_URI) $(LABEL)' 'Created-By: Packages' \
        | awk '$2 == "Debian" && !seen++ { print $1 }'
}

in_root() {
    local root=$1
    shift
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

install_in() {
    local root=$1
    shift
    quietly in_root "$root" apt-get -y --no-install-recommends install "$@"
}

# Unstable has neither updates nor security updates of its own.
leave_offered() {
    if [ "$release" = sid ]; then
        awk -v RS= -v ORS='\n\n' '!/sid-security/ { gsub(/ sid-updates/, ""); print }'
    else
        cat
    fi
}

# Copies the sources and settings of this machine's apt, adapted to the release.
copy_apt_settings() {
    local root=$1 own file
    own=$(. /etc/os-release && echo "$VERSION_CODENAME")
    rm -f "$root/etc/apt/sources.list"
    for file in /etc/apt/sources.list.d/debian*.sources; do
        sed "s/\b$own\b/$release/g" "$file" | leave_offered >"$root/etc/apt/sources.list.d/${file##*/}"
    done
    for file in /etc/apt/apt.conf.d/99*; do
        [ -e "$file" ] && cp "$file" "$root/etc/apt/apt.conf.d/"
    done
    echo 'Acquire::Languages "none";' >"$root/etc/apt/apt.conf.d/98languages"
    echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io"
    printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
    chmod +x "$root/usr/sbin/policy-rc.d"
}

# All layers of a release share their downloads.
share_downloads() {
    mkdir -p "$roots/$release/downloads/partial"
    mount --bind "$roots/$release/downloads" "$1/var/cache/apt/archives"
    open_root "$1"
}

unshare_downloads() {
    umount "$1/proc" "$1/var/cache/apt/archives"
}

# What packages need in a root before it is booted.
open_root() {
    mount -t proc proc "$1/proc"
    cp --dereference /etc/resolv.conf "$1/etc/resolv.conf"
}

# What programs need in a root, with /dev holding no more of this machine's devices than they may use.
mount_devices() {
    local root=$1 device number
    mount -t tmpfs -o mode=755 tmpfs "$root/dev"
    for device in null zero full random urandom tty fuse; do
        [ -e "/dev/$device" ] || continue
        touch "$root/dev/$device"
        mount --bind "/dev/$device" "$root/dev/$device"
    done
    mkdir "$root/dev/pts" "$root/dev/shm"
    mount -t devpts -o newinstance,ptmxmode=0666,mode=620,gid=5 devpts "$root/dev/pts"
    mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
    ln -s pts/ptmx "$root/dev/ptmx"
    ln -s /proc/self/fd "$root/dev/fd"
    for number in 0:stdin 1:stdout 2:stderr; do
        ln -s "/proc/self/fd/${number%:*}" "$root/dev/${number#*:}"
    done
}

# Creates one root at a time: two runs may need the same one, and apt allows only one to download.
make_root() {
    local folder=$roots/$release/$1
    [ -d "$folder" ] && return
    mkdir -p "${folder%/*}"
    (
        flock 9
        [ -d "$folder" ] && exit
        echo "-- making $folder" >&2
        rm -rf "$folder.part" "$folder.part.work"
        "${@:2}" "$folder.part"
        mv "$folder.part" "$folder"
        rm -rf "$folder.part.work"
    ) 9>"$roots/$release/lock"
}

make_base() {
    make_root base fill_base
}

# fill_minimal ROOT PACKAGE… makes a system with no more than the packages.
fill_minimal() {
    local root=$1
    shift
    mkdir -p "$root"
    quietly debootstrap --variant=minbase "$release" "$root" "$(find_mirror)"
    copy_apt_settings "$root"
    share_downloads "$root"
    quietly in_root "$root" apt-get update
    install_in "$root" "$@"
    unshare_downloads "$root"
}

fill_base() {
    local base=$1
    # shellcheck disable=SC2086 # a list of names
    fill_minimal "$base" $base_packages
    in_root "$base" useradd --create-home --shell /bin/bash ann
    in_root "$base" dbus-uuidgen >"$base/etc/machine-id"
}

# mount_layers ROOT CHANGES [LAYER…] mounts the base with the layers over it (each above the one
# before) at ROOT; changes go to CHANGES.
mount_layers() {
    local root=$1 changes=$2 lower=$roots/$release/base layer
    shift 2
    for layer in "$@"; do
        lower=$roots/$release/$layer:$lower
    done
    mkdir -p "$root" "$changes" "$changes.work"
    mount -t overlay overlay -o "lowerdir=$lower,upperdir=$changes,workdir=$changes.work" "$root"
}

# make_layer NAME COMMAND… creates a layer over the base with a command that gets the root's folder.
make_layer() {
    make_root "$1" fill_layer "${@:2}"
}

fill_layer() {
    local root=$scratch/making changes=${*: -1}
    mount_layers "$root" "$changes"
    share_downloads "$root"
    "${@:1:$#-1}" "$root"
    unshare_downloads "$root"
    umount "$root"
}
