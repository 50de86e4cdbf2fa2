# SPDX-License-Identifier: MIT
"""A base for tests that watch the program while there is nothing to do."""
import os
import time
import unittest

from case import DesktopCase, active_window_title, is_sanitized, is_time, press_keys
from desktop import wait_for
from system_calls import SystemCalls, WakeUps

# The toolkit wakes up once, 30 s after startup (a timer of its caches). After a prompt, the longest
# of its timers are those that end the painting threads (QThreadPool's expiryTimeout) and flush the
# pixmap cache, both 30 s in Qt 6.
LONGEST_TIMER_SECONDS = 30
PATIENCE_SECONDS = 300


@unittest.skipIf(is_sanitized(), "the address sanitizer works of its own and keeps what is freed")
class QuietCase(DesktopCase):
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
