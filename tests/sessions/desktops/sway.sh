# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="sway waybar foot xwayland xdg-desktop-portal xdg-desktop-portal-gtk xdg-desktop-portal-wlr
    adwaita-icon-theme fonts-font-awesome"
session_type=wayland
desktop_names=sway
session_name=sway
# The compositor runs in a window on the outer screen, which programs inside must not use directly.
start='exec env DISPLAY=:41 WLR_BACKENDS=x11 WLR_RENDERER=pixman sway'

prepare_desktop() {
    local settings=$1/home/ann/.config
    mkdir -p "$settings/sway" "$settings/waybar"
    # Adds waybar instead of the default bar, and Tovla, as users would configure it.
    sed -i '/^bar {/a\    swaybar_command waybar' "$1/etc/sway/config"
    cat >"$settings/sway/config" <<SETTINGS
include /etc/sway/config
output X11-1 resolution $size
exec tovla
SETTINGS
    cat >"$settings/waybar/style-light.css" <<STYLE
@import "/etc/xdg/waybar/style.css";
window#waybar, #tray { background-color: #f4f4f4; color: #202020; }
STYLE
    cat >"$settings/waybar/style-dark.css" <<STYLE
@import "/etc/xdg/waybar/style.css";
window#waybar, #tray { background-color: #202020; color: #f4f4f4; }
STYLE
}
