# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="plasma-desktop plasma-workspace kwin-wayland xwayland kwrite breeze breeze-icon-theme
    xdg-desktop-portal-kde libkscreen-bin kde-config-gtk-style"
# Part of plasma-workspace on later releases.
[ "$release" != bookworm ] || packages+=" plasma-workspace-wayland"
session_type=wayland
desktop_names=KDE
session_name=plasma
start='exec startplasma-wayland'

# KWin runs in a window on the outer screen.
prepare_desktop() {
    local unit=$1/etc/systemd/user/plasma-kwin_wayland.service.d
    mkdir -p "$1/home/ann/.config"
    printf '[KSplash]\nEngine=none\n' >"$1/home/ann/.config/ksplashrc"
    mkdir -p "$unit"
    cat >"$unit/nested.conf" <<UNIT
[Service]
ExecStart=
ExecStart=/usr/bin/kwin_wayland_wrapper --xwayland --x11-display :41 --width ${size%x*} --height ${size#*x}
UNIT
}
