# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034,SC2154 # to be sourced by scripts/session
# GNOME without extensions, which has no tray.
. tests/sessions/desktops/gnome.sh
extensions=""
layer=gnome
