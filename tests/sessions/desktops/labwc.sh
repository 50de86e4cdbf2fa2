# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # to be sourced by scripts/session
packages="labwc waybar foot xwayland xdg-desktop-portal xdg-desktop-portal-gtk xdg-desktop-portal-wlr
    adwaita-icon-theme fonts-font-awesome"
session_type=wayland
desktop_names=labwc:wlroots
session_name=labwc
start='exec env DISPLAY=:41 WLR_BACKENDS=x11 WLR_RENDERER=pixman labwc'

prepare_desktop() {
    mkdir -p "$1/home/ann/.config/labwc"
    printf '%s &\n' 'dbus-update-activation-environment --systemd --all' waybar \
        >"$1/home/ann/.config/labwc/autostart"
}
