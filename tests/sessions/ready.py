# SPDX-License-Identifier: MIT
"""Waits until the session of the named desktop is ready for use."""
import os
import sys

import dbus

import tray  # noqa: F401 - sets the main loop of the buses
from desktops import DESKTOPS
from pictures import still_picture
from tray import Tray
from waiting import wait_for
from x11_windows import has_old_tray


def has_started(desktop):
    """Checks for what comes up last: the panel's tray, or the shell itself."""
    if not desktop.tray:
        try:
            return desktop.screen.evaluate("!Main.layoutManager._startingUp")
        except (dbus.DBusException, RuntimeError):
            return False
    return has_old_tray() if desktop.old_tray else Tray().has_host()


def leave_overview(desktop):
    """GNOME shows the overview over everything after login."""
    if desktop.gnome:
        desktop.screen.evaluate("Main.overview.hide(); 0")
        wait_for(lambda: not desktop.screen.evaluate("Main.overview.visible"), "the overview to go")


def open_desktop(name):
    desktop = DESKTOPS[name]
    wait_for(lambda: os.path.exists("/run/user/1000/bus"), "the session's bus")
    os.environ.setdefault("DISPLAY", ":41")  # the session's own environment is not known yet
    desktop.open()
    wait_for(lambda: has_started(desktop), "the desktop to start", 120)
    leave_overview(desktop)
    still_picture(desktop.screen, patience=60)
    return desktop


if __name__ == "__main__":
    open_desktop(sys.argv[1])
