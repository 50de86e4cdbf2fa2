# SPDX-License-Identifier: MIT
"""A private desktop for one test: display, window manager, session bus, tray host and home.

Create a Desktop before anything else uses the session bus or the accessibility tree: both are
found through the environment, which the Desktop sets for this process and all its children.
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
        # To try another window manager: TOVLA_TEST_WINDOW_MANAGER="xfwm4".
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
        # Screenshots from different machines are compared, so all use the same font.
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
        # Not needed if the window manager is a compositor itself: TOVLA_TEST_COMPOSITOR="".
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

    def start_tovla(self, *arguments, launcher=(), **environment):
        # Not a pipe: the program would wait for somebody to read it once it is full.
        complaints = self.home / f"stderr-{len(self.processes)}"
        with complaints.open("wb") as stderr:
            program = self.start(*launcher, os.environ["TOVLA"], *arguments, stderr=stderr,
                                 env={**os.environ, **environment})
        self.tovlas.append(program)
        return Tovla(program, complaints, self)

    def forget_user(self):
        """Removes the preferences and the journal, as if the program had never run."""
        for folder in (self.preferences_file().parent, self.journal()):
            shutil.rmtree(folder, ignore_errors=True)

    def stop_tovlas(self):
        for process in self.tovlas:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
            process.wait()
        self.tovlas.clear()
        # The window manager may take a window of theirs for the active one a little longer.
        wait_for(lambda: not search_windows("--onlyvisible", "--class", "^tovla$"),
                 "their windows to go")

    def set_wallpaper(self, *colors):
        colors = colors or ("#8fb9dc", "#d9c6ea", "#f3d3b6")
        stops = [argument for color in colors for argument in ("-add", color)]
        subprocess.run(["hsetroot", *stops, "-gradient", "45"], check=True,
                       stdout=subprocess.DEVNULL)

    def wait_until_still(self):
        """Waits for two identical screenshots in a row. A blinking caret allows that now and then."""
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

    def __init__(self, process, stderr, desktop):
        self.process = process
        self.stderr = stderr
        self.desktop = desktop

    def is_running(self):
        return self.process.poll() is None

    def wait_for_end(self):
        wait_for(lambda: not self.is_running(), "the program's end")
        return self.process.returncode

    def complaints(self):
        """Everything it has written to stderr."""
        return self.stderr.read_text()

    def wait_for_tray_item(self):
        return wait_for(lambda: self.desktop.tray.item_of(self.process.pid), "the tray item")

    def act_when_ready(self, action):
        """Waits first: the previous copy may still own the name for a moment."""
        wait_for(lambda: output("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus",
                                "--object-path", "/", "--method",
                                "org.freedesktop.DBus.GetConnectionUnixProcessID",
                                "org.tovla.Tovla") == f"(uint32 {self.process.pid},)",
                 "the program on the bus")
        self.act(action)

    def act(self, action):
        """Activates an action over the bus, like a launcher, while our tray host keeps running."""
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
    """Window managers announce themselves early, but set these properties only once they manage
    windows; xfwm4 sets the list only once there is a window."""
    return "window id" in output("xprop", "-root", "_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW")


def wait_for(condition, what, patience=PATIENCE_SECONDS):
    """Serves the bus until the condition holds, and returns the condition's result."""
    from gi.repository import GLib
    context = GLib.MainContext.default()
    deadline = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {patience} s for {what}, without success")
        GLib.timeout_add(10, lambda: False)
        context.iteration(True)
        while context.pending():
            context.iteration(False)


def visible_windows(title):
    return search_windows("--onlyvisible", "--name", f"^{re.escape(title)}$")


def search_windows(*criteria):
    """Searches again if a window disappears during the search, which makes xdotool fail."""
    while True:
        search = subprocess.run(["xdotool", "search", *criteria], capture_output=True, text=True)
        if "X Error" not in search.stderr:
            return [int(window) for window in search.stdout.split()]
