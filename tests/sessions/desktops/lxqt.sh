# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="lxqt-core lxqt-themes openbox obconf-qt featherpad breeze-icon-theme papirus-icon-theme lxqt-notificationd
    xdg-desktop-portal-lxqt xdg-desktop-portal dbus-x11 pcmanfm-qt"
session_type=x11
desktop_names=LXQt
session_name=lxqt
environment=DISPLAY=:41
start='dbus-update-activation-environment --systemd --all; exec startlxqt'

prepare_desktop() {
    :
}
