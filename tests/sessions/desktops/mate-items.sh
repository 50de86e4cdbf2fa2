# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
# MATE with StatusNotifierItem enabled; its default is the XEmbed tray.
. tests/sessions/desktops/mate.sh
layer=mate

prepare_desktop() {
    cat >"$1/usr/share/glib-2.0/schemas/99_session.gschema.override" <<SETTINGS
[org.mate.panel]
enable-sni-support=true
SETTINGS
    in_root "$1" glib-compile-schemas /usr/share/glib-2.0/schemas
}
