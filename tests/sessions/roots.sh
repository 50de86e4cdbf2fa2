# SPDX-License-Identifier: MIT
# To be sourced: Debian systems in folders, made once and kept in $roots. Each release has a base; what
# a desktop or a build needs besides is an overlay of its own over it, and what a run changes is kept
# in memory. The caller is root, in a mount namespace of its own, and names the $release.
# shellcheck shell=bash disable=SC2154,SC2034 # $roots and $release are the caller's

base_packages="systemd systemd-sysv dbus dbus-user-session libpam-systemd libnss-systemd polkitd
    iproute2 procps xvfb xauth xdotool imagemagick x11-utils x11-xserver-utils xterm wmctrl xclip
    python3-dbus python3-gi python3-pil gir1.2-atspi-2.0 at-spi2-core libglib2.0-bin dconf-gsettings-backend
    libgl1-mesa-dri libegl1 libegl-mesa0 libgles2 xkb-data locales-all fonts-cantarell fonts-dejavu-core
    ca-certificates"
# What a desktop of GTK or Qt takes for granted, though no package insists on it: pictures as SVG.
common_packages="librsvg2-common hicolor-icon-theme gnome-themes-extra"

# Runs a command; what it prints is shown only where it fails.
quietly() {
    "$@" >"$scratch/log" 2>&1 || { tail -n 40 "$scratch/log" >&2; return 1; }
}

# Where this machine gets its own packages from.
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

# The sources and the habits of this machine's apt, for the other release.
copy_apt_settings() {
    local root=$1 own file
    own=$(. /etc/os-release && echo "$VERSION_CODENAME")
    rm -f "$root/etc/apt/sources.list"
    for file in /etc/apt/sources.list.d/debian*.sources; do
        sed "s/\b$own\b/$release/g" "$file" >"$root/etc/apt/sources.list.d/${file##*/}"
    done
    for file in /etc/apt/apt.conf.d/99*; do
        [ -e "$file" ] && cp "$file" "$root/etc/apt/apt.conf.d/"
    done
    echo 'Acquire::Languages "none";' >"$root/etc/apt/apt.conf.d/98languages"
    echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io"
    printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
    chmod +x "$root/usr/sbin/policy-rc.d"
}

# What is downloaded serves all layers of a release.
share_downloads() {
    mkdir -p "$roots/$release/downloads/partial"
    mount --bind "$roots/$release/downloads" "$1/var/cache/apt/archives"
    open_root "$1"
}

unshare_downloads() {
    umount "$1/proc" "$1/var/cache/apt/archives"
}

# What packages want of a root before it is booted.
open_root() {
    mount -t proc proc "$1/proc"
    cp --dereference /etc/resolv.conf "$1/etc/resolv.conf"
}

# One root is made at a time, for two runs may want the same, and apt allows one to download.
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

fill_base() {
    local base=$1
    mkdir -p "$base"
    quietly debootstrap --variant=minbase "$release" "$base" "$(find_mirror)"
    copy_apt_settings "$base"
    share_downloads "$base"
    quietly in_root "$base" apt-get update
    # shellcheck disable=SC2086 # a list of names
    install_in "$base" $base_packages
    unshare_downloads "$base"
    in_root "$base" useradd --create-home --shell /bin/bash ann
    in_root "$base" dbus-uuidgen >"$base/etc/machine-id"
}

# Mounts at ROOT the base with the layers LOWER (the uppermost first, none may be given) and what is
# changed in CHANGES.
mount_layers() {
    local root=$1 changes=$2 lower=$roots/$release/base layer
    shift 2
    for layer in "$@"; do
        lower=$roots/$release/$layer:$lower
    done
    mkdir -p "$root" "$changes" "$changes.work"
    mount -t overlay overlay -o "lowerdir=$lower,upperdir=$changes,workdir=$changes.work" "$root"
}

# Makes the layer NAME over the base by a command that is given the root's folder.
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
