# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="plasma-desktop plasma-workspace kwin-x11 kwrite breeze breeze-icon-theme breeze-gtk-theme
    xdg-desktop-portal-kde plasma-workspace-wallpapers"
session_type=x11
desktop_names=KDE
session_name=plasmax11
environment=DISPLAY=:41
start='exec startplasma-x11'

prepare_desktop() {
    mkdir -p "$1/home/ann/.config"
    printf '[KSplash]\nEngine=none\n' >"$1/home/ann/.config/ksplashrc"
}
