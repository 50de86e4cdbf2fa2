# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="labwc wlr-randr waybar foot xwayland xdg-desktop-portal xdg-desktop-portal-gtk xdg-desktop-portal-wlr
    adwaita-icon-theme fonts-font-awesome"
session_type=wayland
desktop_names=labwc:wlroots
session_name=labwc
start='exec env DISPLAY=:41 WLR_BACKENDS=x11 WLR_RENDERER=pixman labwc'

prepare_desktop() {
    local settings=$1/home/ann/.config/labwc
    mkdir -p "$settings"
    cat >"$settings/autostart" <<COMMANDS
wlr-randr --output X11-1 --custom-mode $size
dbus-update-activation-environment --systemd --all
waybar &
tovla &
COMMANDS
}
