# SPDX-License-Identifier: MIT
"""A desktop of its own for one test: display, window manager, session bus, tray host and home.

Make a Desktop before anything else touches the session bus or the accessibility tree: both are
found through the environment, which the Desktop sets for this process and all that it starts.
"""
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

import x11

PATIENCE_SECONDS = float(os.environ.get("TOVLA_TEST_PATIENCE", 60))


class Desktop:
    def __init__(self, window_manager=None, compositor=True, size="1280x900", scale=None,
                 tray=True):
        self.home = Path(tempfile.mkdtemp(prefix="tovla-desktop-"))
        self.processes = []
        self.tovlas = []
        self.tray = None
        try:
            self._start(window_manager, compositor, size, scale, tray)
        except BaseException:
            self.close()
            raise

    def _start(self, window_manager, compositor, size, scale, tray):
        self._set_environment(scale)
        _, os.environ["DISPLAY"] = self.start_display(size)
        _, os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus()
        # Another one than openbox can be tried by hand: TOVLA_TEST_WINDOW_MANAGER="xfwm4".
        command = window_manager or os.environ.get("TOVLA_TEST_WINDOW_MANAGER", "openbox")
        self.start(*command.split())
        wait_for(is_managed, "the window manager")
        if compositor:
            self.start_compositor()
        if tray:
            self.start_tray()

    def _set_environment(self, scale):
        for name in list(os.environ):
            if name.startswith(("XDG_", "QT_", "LC_", "WAYLAND_", "DBUS_", "GTK_", "DESKTOP_")):
                del os.environ[name]
        runtime = self.home / "runtime"
        runtime.mkdir(mode=0o700)
        font_folder = self.home / ".config" / "fontconfig"
        font_folder.mkdir(parents=True)
        # Pictures are compared from machine to machine, so they are all made with one font.
        (font_folder / "fonts.conf").write_text(
            '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
            '<match target="pattern"><edit name="family" mode="prepend" binding="strong">'
            "<string>Inter</string></edit></match></fontconfig>")
        os.environ.update(HOME=str(self.home), XDG_RUNTIME_DIR=str(runtime), LANG="C.UTF-8",
                          TZ="Europe/Berlin", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                          NO_AT_BRIDGE="0", QT_QPA_PLATFORM="xcb")
        if scale:
            os.environ["QT_SCALE_FACTOR"] = str(scale)

    def start_display(self, size):
        """Returns the server's process and the display's name."""
        reader, writer = os.pipe()
        server = self.start("Xvfb", "-displayfd", str(writer), "-screen", "0", size + "x24",
                            "-nolisten", "tcp", "-noreset", pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as numbers:
            return server, ":" + numbers.readline().strip()

    def start_bus(self):
        """Returns the bus's process and its address."""
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address=1",
                         stdout=subprocess.PIPE, text=True)
        return bus, bus.stdout.readline().strip()

    def start(self, *command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, start_new_session=True, **options)
        self.processes.append(process)
        return process

    def start_compositor(self):
        # None where the window manager is one: TOVLA_TEST_COMPOSITOR="".
        command = os.environ.get("TOVLA_TEST_COMPOSITOR", "picom --backend xrender --config "
                                 "/dev/null --no-fading-openclose").split()
        self.compositor = self.start(*command) if command else None
        wait_for(self.is_composited, "the compositor")

    def is_composited(self):
        return x11.selection_has_owner("_NET_WM_CM_S0")

    def start_tray(self):
        import tray_host
        self.tray = tray_host.TrayHost()
        return self.tray

    def preferences_file(self):
        return self.home / ".config" / "Tovla" / "Tovla.conf"

    def write_preferences(self, **values):
        path = self.preferences_file()
        path.parent.mkdir(parents=True, exist_ok=True)
        lines = [f"{key}={value}" for key, value in values.items()]
        path.write_text("[General]\n" + "\n".join(lines) + "\n")

    def journal(self):
        return self.home / "Journal"

    def start_tovla(self, *arguments, **environment):
        program = self.start(os.environ["TOVLA"], *arguments, stderr=subprocess.PIPE, text=True,
                             env={**os.environ, **environment})
        self.tovlas.append(program)
        return Tovla(program, self)

    def forget_user(self):
        """A user who has never run the program."""
        for folder in (self.preferences_file().parent, self.journal()):
            shutil.rmtree(folder, ignore_errors=True)

    def stop_tovlas(self):
        for process in self.tovlas:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
            process.wait()
        self.tovlas.clear()

    def set_wallpaper(self, *colors):
        colors = colors or ("#8fb9dc", "#d9c6ea", "#f3d3b6")
        stops = [argument for color in colors for argument in ("-add", color)]
        subprocess.run(["hsetroot", *stops, "-gradient", "45"], check=True,
                       stdout=subprocess.DEVNULL)

    def wait_until_still(self):
        """Until the screen shows the same twice, which a blinking caret allows now and then."""
        before = None

        def is_still():
            nonlocal before
            now = subprocess.run(["import", "-window", "root", "ppm:-"], check=True,
                                 stdout=subprocess.PIPE).stdout
            same, before = now == before, now
            return same

        wait_for(is_still, "the screen to stand still")

    def screenshot(self, path):
        subprocess.run(["import", "-window", "root", str(path)], check=True)

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
        for process in self.processes:
            process.wait()
            for stream in (process.stdout, process.stderr):
                if stream:
                    stream.close()
        shutil.rmtree(self.home, ignore_errors=True)


class Tovla:
    """The running program, as a user and the desktop see it."""

    def __init__(self, process, desktop):
        self.process = process
        self.desktop = desktop

    def is_running(self):
        return self.process.poll() is None

    def wait_for_end(self):
        wait_for(lambda: not self.is_running(), "the program's end")
        return self.process.returncode

    def complaints(self):
        """What it wrote to stderr until its end, but for what Qt says that it has not got of the
        newest AT-SPI."""
        return "".join(line for line in self.process.stderr
                       if "AtSpiAdaptor" not in line or "does not implement" not in line)

    def wait_for_tray_item(self):
        return wait_for(lambda: self.desktop.tray.item_of(self.process.pid), "the tray item")

    def act_when_ready(self, action):
        """The one that ran before may still have the name for a moment."""
        wait_for(lambda: output("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus",
                                "--object-path", "/", "--method",
                                "org.freedesktop.DBus.GetConnectionUnixProcessID",
                                "org.tovla.Tovla") == f"(uint32 {self.process.pid},)",
                 "the program on the bus")
        self.act(action)

    def act(self, action):
        """Asks through the bus, as a launcher's action does, while our tray host goes on serving."""
        asking = subprocess.Popen(["gdbus", "call", "--session", "--dest", "org.tovla.Tovla",
                                   "--object-path", "/org/tovla/Tovla", "--method",
                                   "org.freedesktop.Application.ActivateAction", action, "[]",
                                   "{}"], stdout=subprocess.DEVNULL)
        wait_for(lambda: asking.poll() is not None, "the answer")
        if asking.returncode:
            raise AssertionError(f"{action} was refused")


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True).stdout.strip()


def is_managed():
    """Window managers announce themselves early, but tell of windows only once they manage them;
    xfwm4 lists them only once there is one."""
    return "window id" in output("xprop", "-root", "_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW")


def wait_for(condition, what, patience=PATIENCE_SECONDS):
    """Runs the bus and asks again until the condition holds; returns what it returned."""
    from gi.repository import GLib
    context = GLib.MainContext.default()
    deadline = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {patience} s in vain for {what}")
        GLib.timeout_add(10, lambda: False)
        context.iteration(True)
        while context.pending():
            context.iteration(False)


def visible_windows(title):
    return search_windows("--onlyvisible", "--name", f"^{re.escape(title)}$")


def search_windows(*criteria):
    """Asks again when a window went away during the search, which xdotool does not survive."""
    while True:
        search = subprocess.run(["xdotool", "search", *criteria], capture_output=True, text=True)
        if "X Error" not in search.stderr:
            return [int(window) for window in search.stdout.split()]
