# SPDX-License-Identifier: MIT
"""Tovla as used in a session: started at login, controlled over the bus, its day files."""
import subprocess
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


def start():
    """Starts the program the way a desktop does at login: portals recognise it by its unit."""
    subprocess.run(["systemd-run", "--user", "--quiet", "--collect",
                    f"--unit=app-{APPLICATION}@autostart.service", "tovla"], check=True)
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
