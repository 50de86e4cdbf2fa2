# SPDX-License-Identifier: MIT
# To be sourced after roots.sh: the package of these sources, built on the release it is for. It is
# kept until the sources change, and what was compiled is used again then.
# shellcheck shell=bash

install_build_packages() {
    (
        . scripts/packages.sh
        # shellcheck disable=SC2154,SC2086 # lists of names, from the file above
        install_in "$1" $build_packages $package_packages
    )
}

# Tests and pages are not part of the package.
list_sources() {
    git ls-files -z --cached --others --exclude-standard -- ':!tests' ':!docs' ':!scripts/session'
}

hash_sources() {
    list_sources | xargs -0 sha256sum 2>/dev/null | sha256sum | cut -c 1-16
}

copy_sources() {
    local folder=$1
    mkdir -p "$folder"
    find "$folder" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
    list_sources | tar -c --null --ignore-failed-read -T - 2>/dev/null | tar -x --no-same-owner -C "$folder"
    mkdir -p "$folder/tests" # the build asks for none, but looks
}

# Prints the package's path.
build_package() {
    local folder root=$scratch/building compiled=$roots/$release/compiled
    folder=$roots/$release/packages/$(hash_sources)
    if [ ! -d "$folder" ]; then
        make_layer build install_build_packages
        echo "-- building the package on $release" >&2
        copy_sources "$compiled"
        mount_layers "$root" "$scratch/changes/build" build
        share_downloads "$root"
        mkdir -p "$root/srv/tovla"
        mount --bind "$compiled" "$root/srv/tovla"
        quietly in_root "$root" nice /srv/tovla/scripts/package
        umount "$root/srv/tovla"
        unshare_downloads "$root"
        umount "$root"
        mkdir -p "$folder"
        cp "$compiled"/build/package/tovla_*.deb "$folder"
    fi
    echo "$folder"/tovla_*.deb
}
