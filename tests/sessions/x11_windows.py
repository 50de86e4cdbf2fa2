# SPDX-License-Identifier: MIT
"""The windows of a session as listed by its X display; on Wayland, those on XWayland."""
import re
import subprocess

from windows import Window


def _output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True).stdout


def _numbers(text):
    return re.findall(r"0x[0-9a-f]+", text)


def _shown(program):
    return _output("xdotool", "search", "--onlyvisible", "--class", f"^{program}$").split()


def _box(number):
    geometry = dict(re.findall(r"^ *(Absolute[^:]*|Width|Height): +(-?\d+)$",
                               _output("xwininfo", "-id", number), re.MULTILINE))
    x, y, width, height = (int(geometry.get(name, 0)) for name in (
        "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
    return (x, y, x + width, y + height)


def popups(program="tovla"):
    """The menus drawn by the program itself, which bypass the window manager."""
    return [number for number in _shown(program)
            if "Override Redirect State: yes" in _output("xwininfo", "-id", number)]


def docked_icon(program="tovla"):
    """The box of the window that the program has put into the XEmbed tray."""
    return next((_box(number) for number in _shown(program)
                 if "_XEMBED_INFO" in _output("xprop", "-id", number)), None)


def has_old_tray():
    """A tray announces itself by owning a selection, but no command-line tool shows that. Its window
    has a property for the orientation of its icons."""
    found = _output("xdotool", "search", "--name", ".*").split()
    return any("_NET_SYSTEM_TRAY_ORIENTATION(" in _output("xprop", "-id", number)
               for number in found)


class X11Windows:
    def windows(self):
        """From bottom to top."""
        root = _output("xprop", "-root", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW")
        stacking, _, active = root.partition("_NET_ACTIVE_WINDOW")
        active = _numbers(active)[:1]
        return [self._window(number, [number] == active) for number in _numbers(stacking)]

    def _window(self, number, active):
        described = _output("xprop", "-id", number, "_NET_WM_NAME", "WM_NAME", "WM_CLASS",
                            "_NET_WM_STATE", "_NET_WM_WINDOW_TYPE", "_NET_WM_ALLOWED_ACTIONS",
                            "_MOTIF_WM_HINTS")
        lines = dict(re.findall(r"^(\w+)[^=:\n]*[=:] *(.*)$", described, re.MULTILINE))
        title = lines.get("_NET_WM_NAME", "")
        state = lines.get("_NET_WM_STATE", "")
        actions = lines.get("_NET_WM_ALLOWED_ACTIONS", "")
        kinds = re.findall(r"_NET_WM_WINDOW_TYPE_(\w+)", lines.get("_NET_WM_WINDOW_TYPE", ""))
        return Window(
            title=(title if '"' in title else lines.get("WM_NAME", "")).strip('"'),
            program=lines.get("WM_CLASS", "").split('"')[-2:][0].lower(),
            box=_box(number), active=active, above="ABOVE" in state,
            in_taskbar="SKIP_TASKBAR" not in state, kind=" ".join(kinds).lower(),
            minimizable="ACTION_MINIMIZE" in actions if actions else None,
            maximizable="ACTION_MAXIMIZE_VERT" in actions if actions else None,
            resizable="ACTION_RESIZE" in actions if actions else None)
