# SPDX-License-Identifier: MIT
"""What the program does in a minute of a quiet session, while there is nothing to do.

This is the only test that observes a fixed span of time. It counts only what the program does on its
own, so neither the machine's speed nor its other programs matter.
"""
import os
import re
import subprocess
import time
import unittest
from pathlib import Path

from case import DesktopCase, active_window_title, is_sanitized, is_time, press_keys
from desktop import wait_for
from system_calls import MESSAGE, SystemCalls, WakeUps

MINUTE = 60
# The toolkit wakes up once, 30 s after startup (a timer of its caches). After a prompt, the longest
# of its timers are those that end the painting threads (QThreadPool's expiryTimeout) and flush the
# pixmap cache, both 30 s in Qt 6.
LONGEST_TIMER_SECONDS = 30
PATIENCE_SECONDS = 300
PROMPTS = 100
KIB_OF_GROWTH = 1024
# Runs a program as a user who may watch no files.
WITHOUT_INOTIFY = ("unshare", "--map-current-user", "--keep-caps", "sh", "-c",
                   'echo 0 >/proc/sys/user/max_inotify_instances && exec "$@"', "sh")


@unittest.skipIf(is_sanitized(), "the address sanitizer works of its own and keeps what is freed")
class IdleTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # With accessibility switched on, the session is never quiet.
        del os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]

    def setUp(self):
        super().setUp()
        self.start()
        self.pid = self.tovla.process.pid

    def open_and_close_prompt(self):
        self.item.click("Write now")
        wait_for(lambda: is_time(active_window_title()), "the prompt to be active")

        def closes():
            """The prompt may get keyboard focus a little later than the window manager says."""
            press_keys("Escape")
            return not self.prompt_titles()

        wait_for(closes, "the prompt to close")

    def watch(self):
        try:
            calls = SystemCalls(self.pid)
        except PermissionError:
            calls = WakeUps(self.pid)
        self.addCleanup(calls.stop)
        return calls

    def wait_until_toolkit_is_quiet(self, calls):
        seen, since = len(calls.own), time.monotonic()

        def is_quiet():
            nonlocal seen, since
            calls.read()
            if len(calls.own) != seen:
                seen, since = len(calls.own), time.monotonic()
            return time.monotonic() - since > LONGEST_TIMER_SECONDS + 1

        try:
            wait_for(is_quiet, "the toolkit to be done", PATIENCE_SECONDS)
        except AssertionError as error:
            raise AssertionError(f"{error}; the last calls: {calls.own[-5:]}") from None

    def assert_nothing_happens_in_a_minute(self):
        calls = self.watch()
        self.wait_until_toolkit_is_quiet(calls)
        before = len(calls.own)
        time.sleep(MINUTE)
        calls.read()
        self.assertEqual(calls.own[before:], [])

    def test_after_start_nothing_happens(self):
        self.assert_nothing_happens_in_a_minute()

    def test_where_no_file_can_be_watched_nothing_polls(self):
        if subprocess.run([*WITHOUT_INOTIFY, "true"], stderr=subprocess.DEVNULL).returncode:
            self.skipTest("user namespaces are not permitted")
        self.desktop.stop_tovlas()
        self.tovla = self.desktop.start_tovla(launcher=WITHOUT_INOTIFY)
        self.tovla.wait_for_tray_item()
        self.pid = self.tovla.process.pid
        self.assertNotIn("inotify", self.open_files())
        self.wait_until_toolkit_is_quiet(self.watch())

    def open_files(self):
        links = Path(f"/proc/{self.pid}/fd").iterdir()
        return " ".join(os.readlink(link) for link in links)

    def test_after_a_prompt_nothing_happens(self):
        self.open_and_close_prompt()
        self.assert_nothing_happens_in_a_minute()

    def test_prompts_leave_no_memory_behind(self):
        self.open_and_close_prompt()
        first = self.private_dirty_kib_when_quiet()
        for _ in range(PROMPTS):
            self.open_and_close_prompt()
        self.assertLess(self.private_dirty_kib_when_quiet() - first, KIB_OF_GROWTH)

    def private_dirty_kib_when_quiet(self):
        calls = self.watch()
        self.wait_until_toolkit_is_quiet(calls)
        calls.stop()
        rollup = Path(f"/proc/{self.pid}/smaps_rollup").read_text()
        return int(re.search(r"Private_Dirty:\s+(\d+) kB", rollup)[1])

    def test_what_others_give_occasion_for_is_told_apart(self):
        calls = self.watch()
        if isinstance(calls, WakeUps):
            self.skipTest("strace is not permitted")
        self.wait_until_toolkit_is_quiet(calls)
        before, heard = len(calls.own), len(calls.all)
        subprocess.run(["xprop", "-root", "-f", "_TOVLA", "8s", "-set", "_TOVLA", "x"], check=True)

        def is_heard():
            calls.read()
            return any(MESSAGE.match(call) for call in calls.all[heard:])

        wait_for(is_heard, "the display's message")
        self.assertEqual(calls.own[before:], [])


if __name__ == "__main__":
    unittest.main()
