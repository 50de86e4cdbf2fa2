# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="cinnamon cinnamon-session gnome-text-editor adwaita-icon-theme gnome-themes-extra xdg-desktop-portal-xapp
    xapps-common xapp-sn-watcher dbus-x11"
session_type=x11
desktop_names=X-Cinnamon
session_name=cinnamon
environment=DISPLAY=:41
start='dbus-update-activation-environment --systemd --all; exec cinnamon-session-cinnamon'

# Without a seat for colord, Cinnamon covers the screen with a password dialog at login.
prepare_desktop() {
    ln -s /dev/null "$1/etc/systemd/system/colord.service"
}
