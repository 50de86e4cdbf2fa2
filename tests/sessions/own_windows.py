# SPDX-License-Identifier: MIT
"""The program's own windows as it reports them to assistive technology, for compositors that do not
list them. Their place is unknown."""
import dbus
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from windows import Window  # noqa: E402


def _ask_for_reports():
    """Programs report nothing until there is assistive technology."""
    status = dbus.SessionBus().get_object("org.a11y.Bus", "/org/a11y/bus")
    status.Set("org.a11y.Status", "IsEnabled", True, dbus_interface=dbus.PROPERTIES_IFACE)


def _frames():
    desktop = Atspi.get_desktop(0)
    for program in (desktop.get_child_at_index(i) for i in range(desktop.get_child_count())):
        if program is not None and program.get_name().lower() == "tovla":
            program.clear_cache()
            yield from (program.get_child_at_index(i) for i in range(program.get_child_count()))


def _window(frame):
    frame.clear_cache()
    states = frame.get_state_set()
    if not states.contains(Atspi.StateType.SHOWING):
        return None
    size = Atspi.Component.get_size(frame)
    return Window(title=frame.get_name(), program="tovla", box=(0, 0, size.x, size.y),
                  active=states.contains(Atspi.StateType.ACTIVE), kind="Wayland")


def own_windows():
    windows = []
    for frame in _frames():
        try:
            windows.append(frame and _window(frame))
        except GLib.Error:  # it has closed meanwhile
            continue
    return [window for window in windows if window]


class WithOwnWindows:
    """Adds the program's windows to those that the compositor lists."""

    def __init__(self, listed):
        self.listed = listed
        _ask_for_reports()

    def windows(self):
        listed = self.listed.windows()
        own = [window for window in own_windows()
               if window.title not in (other.title for other in listed)]
        if any(window.active for window in own):
            for window in listed:
                window.active = False
        return listed + own
