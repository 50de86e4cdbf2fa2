# SPDX-License-Identifier: MIT
# To be sourced after roots.sh: builds the package from these sources on the release that it is for.
# The package is kept until the sources change; later builds then reuse compiled files.
# shellcheck shell=bash disable=SC2154 # $roots, $release and $scratch are the caller's

install_build_packages() {
    (
        . scripts/packages.sh
        # shellcheck disable=SC2154,SC2086,SC2016 # lists of names, from the file above
        quietly in_root "$1" bash -c '. /dev/stdin && need "$@"' bash $build_packages $package_packages \
            <scripts/packages.sh
    )
}

# Tests and documentation are not part of the package.
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
    mkdir -p "$folder/tests" # not built, but the folder must exist
}

# Prints the package's path.
build_package() {
    local folder
    folder=packages/$(hash_sources)
    make_layer build install_build_packages
    make_root "$folder" fill_package
    echo "$roots/$release/$folder"/tovla_*.deb
}

# Compiled files are reused only for the same source tree, because file times differ between trees.
fill_package() {
    local folder=$1 root=$scratch/building compiled
    compiled=$roots/$release/compiled/$(pwd | sha256sum | cut -c 1-16)
    copy_sources "$compiled"
    mount_layers "$root" "$scratch/changes/build" build
    open_root "$root"
    mkdir -p "$root/srv/tovla" "$folder"
    mount --bind "$compiled" "$root/srv/tovla"
    quietly in_root "$root" nice /srv/tovla/scripts/package
    umount "$root/srv/tovla" "$root/proc" "$root"
    cp "$compiled"/build/package/tovla_*.deb "$folder"
}
