# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="mate-desktop-environment-core mate-themes mate-icon-theme pluma mate-notification-daemon
    xdg-desktop-portal xdg-desktop-portal-gtk dbus-x11 gnome-themes-extra adwaita-icon-theme"
session_type=x11
desktop_names=MATE
session_name=mate
environment=DISPLAY=:41
start='dbus-update-activation-environment --systemd --all; exec mate-session'

prepare_desktop() {
    :
}
