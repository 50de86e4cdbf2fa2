# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
packages="gnome-session gnome-shell xwayland gnome-text-editor gnome-shell-extension-appindicator
    xdg-desktop-portal-gnome xdg-desktop-portal-gtk adwaita-icon-theme ibus"
session_type=wayland
desktop_names=GNOME
session_name=gnome
start='exec gnome-session'
extensions="'ubuntu-appindicators@ubuntu.com'"

# GNOME uses its own virtual display. The checks observe and drive it through unsafe mode.
prepare_desktop() {
    local unit=$1/etc/systemd/user/org.gnome.Shell@wayland.service.d
    mkdir -p "$unit"
    cat >"$unit/headless.conf" <<UNIT
[Service]
ExecStart=
ExecStart=/usr/bin/gnome-shell --headless --virtual-monitor $size --unsafe-mode
UNIT
    cat >"$1/usr/share/glib-2.0/schemas/99_session.gschema.override" <<SETTINGS
[org.gnome.shell]
enabled-extensions=[$extensions]
welcome-dialog-last-shown-version='99'
[org.gnome.desktop.screensaver]
lock-enabled=false
[org.gnome.desktop.session]
idle-delay=0
[org.gnome.desktop.notifications]
show-banners=false
SETTINGS
    in_root "$1" glib-compile-schemas /usr/share/glib-2.0/schemas
}
