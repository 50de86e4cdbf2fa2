# SPDX-License-Identifier: MIT
"""Tovla as used in a session: started at login, controlled over the bus, its day files."""
import subprocess
import time
from datetime import date
from pathlib import Path

import dbus

from report import Failed
from waiting import comes, wait_for

APPLICATION = "org.tovla.Tovla"
JOURNAL = Path("/home/ann/Journal")


def pid():
    found = subprocess.run(["pgrep", "-x", "tovla"], text=True, stdout=subprocess.PIPE).stdout
    return found.split()[0] if found else None


def _session_manager():
    """The address that the session's X session manager hands to the programs that it starts."""
    for environment in Path("/proc").glob("[0-9]*/environ"):
        try:
            variables = environment.read_bytes().split(b"\0")
        except OSError:  # another user's, or it has ended
            continue
        found = next((v for v in variables if v.startswith(b"SESSION_MANAGER=")), None)
        if found:
            return [f"--setenv={found.decode()}"]
    return []


def start():
    """Starts the program the way a desktop does at login: portals recognise it by its unit."""
    subprocess.run(["systemd-run", "--user", "--quiet", "--collect", *_session_manager(),
                    f"--unit=app-{APPLICATION}@{time.monotonic_ns()}.service", "tovla"], check=True)
    # Waits for its bus name: an action before that would start a second copy.
    wait_for(lambda: dbus.SessionBus().name_has_owner(APPLICATION), "the program on the bus")


def act(action):
    subprocess.run(["gapplication", "action", APPLICATION, action], check=True, timeout=30)


def launch():
    subprocess.run(["gapplication", "launch", APPLICATION], check=True, timeout=30)


def quit_program():
    act("quit")
    if not comes(lambda: not pid(), 10):
        raise Failed("it still runs 10 s after Quit")


def kill():
    subprocess.run(["pkill", "-KILL", "-x", "tovla"], check=True)
    wait_for(lambda: not pid(), "the program to end")


def day_file():
    path = JOURNAL / f"{date.today():%Y-%m-%d}.md"
    return path.read_text(encoding="utf-8") if path.exists() else ""


def platform():
    """The display system that the program uses, judging by the libraries that it has loaded."""
    maps = Path(f"/proc/{pid()}/maps").read_text(encoding="utf-8")
    if "libqwayland" in maps:
        return "Wayland"
    return "X11" if "libqxcb" in maps else "none"
