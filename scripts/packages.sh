# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # the lists are for those who source this
# To be sourced: the Debian packages that Tovla needs, and how to install the missing ones.

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev qt6-tools-dev qt6-tools-dev-tools
    qt6-l10n-tools libxcb1-dev libxcb-xfixes0-dev libcanberra-dev python3
    maybe:liblayershellqtinterface-dev:liblayershellqtinterface6 maybe:libwayland-dev:liblayershellqtinterface6"
# The program draws its symbols with Qt's SVG plugin, which newer releases package separately.
run_packages="libqt6svg6 maybe:qt6-svg-plugins hicolor-icon-theme libcanberra0 libcanberra-pulse"
# A desktop for machines without one: display, window manager, compositor, bus, panel, screenshots.
virtual_desktop_packages="xvfb openbox picom dbus dbus-daemon xfce4-panel xdotool imagemagick
    hsetroot x11-utils fonts-inter"
test_packages="$virtual_desktop_packages at-spi2-core gir1.2-atspi-2.0 gir1.2-gtk-3.0 python3-dbus python3-gi
    python3-numpy libglib2.0-bin xterm tint2 x11-xserver-utils libfaketime strace fonts-dejavu-core pulseaudio
    pulseaudio-utils bindfs fuse3 libfuse3-dev python3-xlib ibus ibus-hangul fcitx5 fcitx5-hangul
    fcitx5-frontend-qt6 orca speech-dispatcher"
check_packages="clang clang-format clang-tidy libclang-rt-dev valgrind shellcheck"
package_packages="dpkg-dev file git"
session_packages="debootstrap iproute2 util-linux"
publish_packages="dpkg-dev xz-utils gpg gpg-agent gpgv"
package_check_packages="lintian appstream desktop-file-utils mmdebstrap"

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# Whether this release has the package.
is_offered() {
    case $(LC_ALL=C apt-cache policy "$1") in
    "" | *"Candidate: (none)"*) return 1 ;;
    esac
}

# Prints the named packages that are not installed. "maybe:name" counts only if the package exists,
# and "maybe:name:other" only if the other one does.
missing_of() {
    local wanted package
    for wanted in "$@"; do
        package=${wanted#maybe:}
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "${package%:*}" 2>/dev/null)" != installed ] \
            && { [ "$wanted" = "$package" ] || is_offered "${package#*:}"; }; then
            printf ' %s' "${package%:*}"
        fi
    done
}

# Installs the named packages that are missing.
need() {
    [ -z "$(missing_of "$@")" ] && return
    as_root apt-get update -qq
    # Asked again: a fresh system does not know the available packages until now.
    local missing
    missing=$(missing_of "$@")
    echo "Installing:$missing" >&2
    # shellcheck disable=SC2086 # a list of names
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        $missing >/dev/null
}
