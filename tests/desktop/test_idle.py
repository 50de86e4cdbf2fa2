# SPDX-License-Identifier: MIT
"""What the program does in a minute of a quiet session, while there is nothing to do.

This is the only test that observes a fixed span of time. It counts only what the program does on its
own, so neither the machine's speed nor its other programs matter.
"""
import subprocess
import time
import unittest

from desktop import wait_for
from quiet import QuietCase
from system_calls import MESSAGE, WakeUps

MINUTE = 60


class IdleTest(QuietCase):
    def assert_nothing_happens_in_a_minute(self):
        calls = self.watch()
        self.wait_until_toolkit_is_quiet(calls)
        before = len(calls.own)
        time.sleep(MINUTE)
        calls.read()
        self.assertEqual(calls.own[before:], [])

    def test_after_start_nothing_happens(self):
        self.assert_nothing_happens_in_a_minute()

    def test_after_a_prompt_nothing_happens(self):
        self.open_and_close_prompt()
        self.assert_nothing_happens_in_a_minute()

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
