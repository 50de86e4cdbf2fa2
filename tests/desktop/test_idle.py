# SPDX-License-Identifier: MIT
"""What the program does while there is nothing to do, over a minute of a quiet session.

The one test that observes a span of time. It counts what the program does, so that the speed of
the machine plays no part.
"""
import os
import re
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from case import DesktopCase, active_window_title, is_sanitized, is_time, press_keys
from desktop import wait_for

MINUTE = 60
# The toolkit wakes up once, 30 s after the start (a timer of its caches). After a prompt the longest
# of its timers ends the threads that painted it (QThreadPool's expiryTimeout and the pixmap cache's
# flush, both 30 s in Qt 6).
LONGEST_TIMER_SECONDS = 30
PATIENCE_SECONDS = 300
PROMPTS = 100
KIB_OF_GROWTH = 1024


class SystemCalls:
    """Those that a process and all its threads make, told by strace."""

    def __init__(self, pid):
        self.file = tempfile.NamedTemporaryFile(mode="r")
        self.strace = subprocess.Popen(
            ["strace", "--follow-forks", f"--attach={pid}", f"--output={self.file.name}"],
            stderr=subprocess.PIPE, text=True)
        # "Process 1 attached" or "attach: ptrace(PTRACE_SEIZE, 1): Operation not permitted".
        self.greeting = self.strace.stderr.readline()
        self.is_permitted = " attached" in self.greeting

    def stop(self):
        """All calls that returned while it was attached. Of the ones in which the threads sleep it
        tells only the beginning: "<unfinished ...>" or "<detached ...>"."""
        self.strace.terminate()
        self.strace.communicate()
        return [line for line in self.file.read().splitlines()
                if not line.endswith(" ...>")]


def tasks_of(pid):
    return list(Path(f"/proc/{pid}/task").iterdir())


def status(task, name):
    return int(re.search(rf"^{name}:\s+(\d+)", (task / "status").read_text(), re.MULTILINE)[1])


def wake_ups(pid):
    """How often each thread has gone to sleep until now."""
    counts = {}
    for task in tasks_of(pid):
        try:
            counts[task.name] = status(task, "voluntary_ctxt_switches")
        except (FileNotFoundError, ProcessLookupError):
            pass  # the thread has just ended
    return counts


def private_dirty_kib(pid):
    rollup = Path(f"/proc/{pid}/smaps_rollup").read_text()
    return int(re.search(r"Private_Dirty:\s+(\d+) kB", rollup)[1])


@unittest.skipIf(is_sanitized(), "the address sanitizer works of its own and keeps what is freed")
class IdleTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # To a screen reader the session is never quiet.
        del os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]

    def setUp(self):
        super().setUp()
        self.start()
        self.pid = self.tovla.process.pid

    def open_and_close_prompt(self):
        self.item.click("Write now")
        wait_for(lambda: is_time(active_window_title()), "the prompt to be active")

        def closes():
            """The keyboard may come to it a little later than the window manager says."""
            press_keys("Escape")
            return not self.prompt_titles()

        wait_for(closes, "the prompt to close")

    def wait_until_toolkit_is_quiet(self):
        seen, since = wake_ups(self.pid), time.monotonic()

        def is_quiet():
            nonlocal seen, since
            now = wake_ups(self.pid)
            if now != seen:
                seen, since = now, time.monotonic()
            return time.monotonic() - since > LONGEST_TIMER_SECONDS + 1

        wait_for(is_quiet, "the toolkit to be done", PATIENCE_SECONDS)

    def assert_no_wake_up_in_a_minute(self):
        before = wake_ups(self.pid)
        time.sleep(MINUTE)
        self.assertEqual(wake_ups(self.pid), before)

    def assert_no_system_call_in_a_minute(self):
        # Not in the minute of the wake-ups: to attach, strace wakes every thread up.
        system_calls = SystemCalls(self.pid)
        if not system_calls.is_permitted:
            system_calls.stop()
            self.skipTest(f"strace: {system_calls.greeting}")
        time.sleep(MINUTE)
        self.assertEqual(system_calls.stop(), [])

    def test_after_start_nothing_happens(self):
        self.wait_until_toolkit_is_quiet()
        self.assert_no_wake_up_in_a_minute()
        self.assert_no_system_call_in_a_minute()

    def test_after_a_prompt_nothing_happens(self):
        self.open_and_close_prompt()
        self.wait_until_toolkit_is_quiet()
        self.assert_no_wake_up_in_a_minute()

    def test_prompts_leave_no_memory_behind(self):
        self.open_and_close_prompt()
        self.wait_until_toolkit_is_quiet()
        first = private_dirty_kib(self.pid)
        for _ in range(PROMPTS):
            self.open_and_close_prompt()
        self.wait_until_toolkit_is_quiet()
        self.assertLess(private_dirty_kib(self.pid) - first, KIB_OF_GROWTH)


if __name__ == "__main__":
    unittest.main()
