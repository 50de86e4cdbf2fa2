# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # to be sourced by scripts/session
packages="sway waybar foot xwayland xdg-desktop-portal xdg-desktop-portal-gtk xdg-desktop-portal-wlr
    adwaita-icon-theme fonts-font-awesome"
session_type=wayland
desktop_names=sway
session_name=sway
# The compositor opens a window on the outer screen; nothing inside may take that one for its own.
start='exec env DISPLAY=:41 WLR_BACKENDS=x11 WLR_RENDERER=pixman sway'

prepare_desktop() {
    mkdir -p "$1/home/ann/.config/sway"
    cat >"$1/home/ann/.config/sway/config" <<SETTINGS
include /etc/sway/config
output X11-1 resolution $size
SETTINGS
    sed -i 's/swaybar_command .*/swaybar_command waybar/; /^bar {/a\    swaybar_command waybar' \
        "$1/etc/sway/config"
}
