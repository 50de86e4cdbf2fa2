# SPDX-License-Identifier: MIT
"""Compares the cost of startup with a minimal Qt tray program, and that of a prompt with a bare
window: start.py BUILD_DIR [DESKTOP]

Instructions are counted by callgrind from the start until the program is idle; the counts repeat to
within 0.1 %. Memory is the process's private memory (Private_Dirty) five seconds after the item is
in the tray. DESKTOP is a value for XDG_CURRENT_DESKTOP, for example GNOME.
"""
import logging
import os
import re
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
from desktop import Desktop, wait_for  # noqa: E402

BUILD = Path(sys.argv[1]).resolve()
PROGRAMS = {"tovla": BUILD / "src" / "tovla", "bare": BUILD / "benchmarks" / "bare_tray"}
QUIET_SECONDS = 2
MEMORY_ROUNDS = 5
TIME_ROUNDS = 15


def ticks(pid):
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return int(fields[11]) + int(fields[12])


def wait_until_quiet(pid):
    seen, since = ticks(pid), time.monotonic()

    def is_quiet():
        nonlocal seen, since
        if ticks(pid) != seen:
            seen, since = ticks(pid), time.monotonic()
        return time.monotonic() - since > QUIET_SECONDS

    wait_for(is_quiet, "the program to become quiet")


def start(desktop, *command):
    process = desktop.start(*map(str, command))
    wait_for(lambda: desktop.tray.item_of(process.pid), "the tray item")
    return process


def warm_up(desktop):
    """GTK stores what it finds out about a display in a property of the root window: on GNOME, the
    first program that loads GTK would pay for all later ones."""
    process = start(desktop, PROGRAMS["bare"])
    process.kill()
    process.wait()


def instructions(desktop, program):
    profile = desktop.home / f"callgrind.{program.name}"
    process = start(desktop, "valgrind", "--tool=callgrind", f"--callgrind-out-file={profile}",
                    program)
    wait_until_quiet(process.pid)
    subprocess.run(["callgrind_control", "--dump", str(process.pid)], check=True,
                   stdout=subprocess.DEVNULL)
    process.kill()
    process.wait()
    (dump,) = desktop.home.glob(f"callgrind.{program.name}.*")
    totals = re.search(r"^totals: (\d+)", dump.read_text(), re.MULTILINE)
    dump.unlink()
    return int(totals[1]) / 1e6


def private_dirty(desktop, program):
    process = start(desktop, program)
    time.sleep(5)
    rollup = Path(f"/proc/{process.pid}/smaps_rollup").read_text()
    process.kill()
    process.wait()
    return int(re.search(r"Private_Dirty:\s+(\d+) kB", rollup)[1]) / 1024


def milliseconds(desktop, program):
    """From the start until the item is in the tray."""
    begun = time.monotonic()
    process = start(desktop, program)
    elapsed = time.monotonic() - begun
    process.kill()
    process.wait()
    return 1000 * elapsed


def main():
    # The programs are killed while the host still asks them.
    logging.getLogger("dbus.proxies").setLevel(logging.CRITICAL)
    desktop = Desktop(compositor=False)
    desktop.tray.is_strict = False  # the bare item has fewer properties
    os.environ.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
    if len(sys.argv) > 2:
        os.environ["XDG_CURRENT_DESKTOP"] = sys.argv[2]
    desktop.write_preferences(folderPath=desktop.journal())
    try:
        warm_up(desktop)
        counts = {name: instructions(desktop, program) for name, program in PROGRAMS.items()}
        rounds = [{name: private_dirty(desktop, program) for name, program in PROGRAMS.items()}
                  for _ in range(MEMORY_ROUNDS)]
        memory = {name: statistics.median(each[name] for each in rounds) for name in PROGRAMS}
        times = [{name: milliseconds(desktop, program) for name, program in PROGRAMS.items()}
                 for _ in range(TIME_ROUNDS)]
        until_there = {name: statistics.median(each[name] for each in times) for name in PROGRAMS}
        for what, figures in (("startup until idle, million instructions", counts),
                              ("startup until the icon is in the tray, ms", until_there),
                              ("private memory in the tray, MiB", memory)):
            print(f"| {what} | {figures['tovla']:.2f} | {figures['bare']:.2f} | "
                  f"{figures['tovla'] / figures['bare']:.2f} |", flush=True)
        desktop.start_compositor()  # the card has a shadow
        subprocess.run([BUILD / "benchmarks" / "opening"], check=True)
    finally:
        desktop.close()


main()
