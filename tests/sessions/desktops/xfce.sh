# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="xfce4 mousepad gnome-themes-extra adwaita-icon-theme xdg-desktop-portal xdg-desktop-portal-gtk
    dbus-x11 xfconf"
session_type=x11
desktop_names=XFCE
session_name=xfce
environment=DISPLAY=:41
start='dbus-update-activation-environment --systemd --all; exec startxfce4'

prepare_desktop() {
    # With a dark mode of its own, the panel would look the same under both themes. When that mode is
    # switched, the panel draws no program's icon again, whatever the program does.
    sed -i '/name="dark-mode"/s/value="true"/value="false"/' "$1/etc/xdg/xfce4/panel/default.xml"
}
