# SPDX-License-Identifier: MIT
"""How each desktop is observed, driven and configured, and which text editor it uses."""
import subprocess
from collections.abc import Callable
from dataclasses import dataclass, field

from gnome_screen import GnomeScreen
from gnome_windows import GnomeWindows
from kwin_windows import KWinWindows
from own_windows import WithOwnWindows
from report import NotRun
from sway_windows import SwayWindows
from x11_screen import X11Screen
from x11_windows import X11Windows


def _gsettings(schema, **values):
    return [["gsettings", "set", schema, key.replace("_", "-"), value]
            for key, value in values.items()]


def _interface(scheme, theme):
    """The settings that GTK programs and users of the portal follow."""
    return _gsettings("org.gnome.desktop.interface", color_scheme=scheme, gtk_theme=theme)


def _xfce(theme):
    return [["xfconf-query", "-c", "xsettings", "-p", "/Net/ThemeName", "-n", "-t", "string",
             "-s", theme]]


TEXT = "/home/ann/words.txt"
LIGHT = _interface("prefer-light", "Adwaita")
DARK = _interface("prefer-dark", "Adwaita-dark")


@dataclass
class Desktop:
    package: str  # its version is reported as the desktop's
    panel: str  # the panel's name in the accessibility tree; on GNOME, the shell is asked instead
    editor: list
    light: list = field(default_factory=lambda: LIGHT)
    dark: list = field(default_factory=lambda: DARK)
    tray: bool = True
    old_tray: bool = False  # an XEmbed tray instead of StatusNotifierItem
    gnome: bool = False
    make_windows: type = X11Windows
    display: str = "X11"  # the display system that Tovla uses there
    log_out: list | None = None  # None if there is no session manager
    asks_before_log_out: bool = False
    # The command that changes the scale of the running session, if there is one.
    scale: Callable[[float], list] | None = None

    def open(self):
        self.screen = GnomeScreen() if self.gnome else X11Screen()
        self.windows = GnomeWindows(self.screen) if self.gnome else self.make_windows()

    def set_scale(self, factor):
        if self.gnome:
            self.screen.set_scale(factor)
        elif self.scale:
            subprocess.run(self.scale(factor), check=True, stdout=subprocess.DEVNULL)
        else:
            raise NotRun("no command changes the scale of the running session")


def _call(service, path, method, *arguments):
    return ["gdbus", "call", "--session", "--dest", service, "--object-path", path, "--method",
            method, *arguments]


def _gnome(**options):
    return Desktop("gnome-shell", "gnome-shell", ["gnome-text-editor", TEXT], gnome=True,
                   log_out=["gnome-session-quit", "--logout", "--no-prompt"], **options)


def _plasma(package, **options):
    return Desktop(package, "plasmashell", ["kwrite", TEXT], make_windows=KWinWindows,
                   log_out=_call("org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown.logout"),
                   light=[["plasma-apply-colorscheme", "BreezeLight"]],
                   dark=[["plasma-apply-colorscheme", "BreezeDark"]], **options)


def _mate(**options):
    return Desktop("mate-panel", "notification-area-applet", ["pluma", TEXT],
                   light=_gsettings("org.mate.interface", gtk_theme="Adwaita") + LIGHT,
                   dark=_gsettings("org.mate.interface", gtk_theme="Adwaita-dark") + DARK,
                   log_out=["mate-session-save", "--logout"],
                   **options)


DESKTOPS = {
    "xfce": Desktop("xfce4-panel", "xfce4-panel", ["mousepad", TEXT],
                    light=_xfce("Adwaita") + LIGHT,
                    log_out=["xfce4-session-logout", "--logout"],
                    dark=_xfce("Adwaita-dark") + DARK),
    "plasma-wayland": _plasma("plasma-workspace", scale=lambda factor: [
        "kscreen-doctor", f"output.1.scale.{factor}"]),
    "plasma-x11": _plasma("plasma-workspace"),
    "gnome": _gnome(),
    "gnome-plain": _gnome(tray=False),
    "mate": _mate(old_tray=True),
    "mate-items": _mate(),
    "cinnamon": Desktop("cinnamon", "cinnamon", ["gnome-text-editor", TEXT],
                        log_out=["cinnamon-session-quit", "--logout"], asks_before_log_out=True),
    "lxqt": Desktop("lxqt-panel", "lxqt-panel", ["featherpad", TEXT],
                    log_out=_call("org.lxqt.session", "/LXQtSession", "org.lxqt.session.logout")),
    "sway": Desktop("sway", "waybar", ["foot"], display="Wayland",
                    scale=lambda factor: ["swaymsg", "output", "X11-1", "scale", str(factor)],
                    make_windows=lambda: WithOwnWindows(SwayWindows())),
    "labwc": Desktop("labwc", "waybar", ["xterm"],
                     display="Wayland",
                     scale=lambda factor: ["wlr-randr", "--output", "X11-1", "--scale",
                                           str(factor)],
                     make_windows=lambda: WithOwnWindows(X11Windows())),
}
