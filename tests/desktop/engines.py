# SPDX-License-Identifier: MIT
"""The engines that people write Korean with, as their desktops run them, on the test's own bus, with
its own home, and on from the start."""
import glob
import os
import shutil
import signal
import subprocess

from case import geometry
from desktop import output, search_windows, wait_for

PLUGINS = "/usr/lib/*/qt6/plugins/platforminputcontexts"


class Engine:
    """Runs from its making until it is stopped."""

    # What makes the toolkit use it.
    environment = {}
    # The files it cannot do without, as patterns, each with the package that has it.
    needs = {}
    # Tells xdotool its windows.
    window_criteria = ()

    @classmethod
    def missing(cls):
        """The packages that are not there."""
        return sorted({package for pattern, package in cls.needs.items() if not glob.glob(pattern)})

    def __init__(self, desktop):
        self.desktop = desktop
        self.configure()
        self.process = self.start()

    def configure(self):
        raise NotImplementedError

    def start(self):
        """Returns the process, which answers."""
        raise NotImplementedError

    def stop(self):
        os.killpg(self.process.pid, signal.SIGTERM)
        self.process.wait()

    def use_keyboard(self):
        """Has the keys type what they say."""
        raise NotImplementedError

    def candidates(self):
        """x, y, width and height of the window to choose a character from, None without one."""
        places = [geometry(window) for window in search_windows("--onlyvisible",
                                                                *self.window_criteria)]
        return next((place for place in places if place[2] > 50), None)


class Ibus(Engine):
    environment = {"QT_IM_MODULE": "ibus"}
    needs = {"/usr/bin/ibus-daemon": "ibus", "/usr/share/ibus/component/hangul.xml": "ibus-hangul",
             f"{PLUGINS}/libibusplatforminputcontextplugin.so": "libqt6gui6"}
    window_criteria = ("--class", "^ibus-ui-gtk3$")

    def configure(self):
        settings = self.desktop.home / ".config" / "glib-2.0" / "settings" / "keyfile"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[desktop/ibus/general]\npreload-engines=['hangul']\n\n"
                            "[org/freedesktop/ibus/engine/hangul]\ninitial-input-mode='hangul'\n")

    def start(self):
        # What an engine that was killed has left would lead the toolkit to it.
        shutil.rmtree(self.desktop.home / ".config" / "ibus", ignore_errors=True)
        process = self.desktop.start("ibus-daemon",
                                     env={**os.environ, "GSETTINGS_BACKEND": "keyfile"})
        wait_for(lambda: output("ibus", "engine") == "hangul", "the engine of ibus")
        return process

    def use_keyboard(self):
        output("ibus", "engine", "xkb:us::eng")
        wait_for(lambda: output("ibus", "engine") == "xkb:us::eng", "the keyboard of ibus")


class Fcitx(Engine):
    environment = {"QT_IM_MODULE": "fcitx"}
    needs = {"/usr/bin/fcitx5": "fcitx5", "/usr/share/fcitx5/addon/hangul.conf": "fcitx5-hangul",
             f"{PLUGINS}/libfcitx5platforminputcontextplugin.so": "fcitx5-frontend-qt6"}
    window_criteria = ("--class", "^fcitx$")

    def configure(self):
        folder = self.desktop.home / ".config" / "fcitx5"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "profile").write_text(
            "[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=hangul\n\n"
            "[Groups/0/Items/0]\nName=keyboard-us\n\n[Groups/0/Items/1]\nName=hangul\n\n"
            "[GroupOrder]\n0=Default\n")
        (folder / "config").write_text("[Behavior]\nActiveByDefault=True\n")

    def start(self):
        wait_for(lambda: not self.is_on_the_bus(), "the engine before to leave the bus")
        process = self.desktop.start("fcitx5")
        wait_for(self.is_on_the_bus, "the engine of fcitx")
        return process

    def use_keyboard(self):
        output("fcitx5-remote", "-s", "keyboard-us")
        wait_for(lambda: output("fcitx5-remote", "-n") == "keyboard-us", "the keyboard of fcitx")

    @staticmethod
    def is_on_the_bus():
        # Only asked about: a call would make the bus start another.
        return subprocess.run(
            ["gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/",
             "--method", "org.freedesktop.DBus.NameHasOwner", "org.fcitx.Fcitx5"],
            check=True, stdout=subprocess.PIPE, text=True).stdout.strip() == "(true,)"
