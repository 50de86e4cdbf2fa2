# SPDX-License-Identifier: MIT
"""Checks that a polling program is detected from strace's output on this system."""
import subprocess
import sys
import unittest

from desktop import wait_for
from system_calls import TIMER, SystemCalls

TIMER_DESCRIPTOR = """import ctypes, os
libc = ctypes.CDLL(None)
timer = libc.timerfd_create(1, 0)
libc.timerfd_settime(timer, 0, (ctypes.c_long * 4)(0, 10**7, 0, 10**7), None)
while True: os.read(timer, 8)"""


class SystemCallsTest(unittest.TestCase):
    def test_every_way_to_poll_is_found_out(self):
        for way in ("import time\nwhile True: time.sleep(0.01)",
                    "import select\nwhile True: select.poll().poll(10)",
                    "import select\nwhile True: select.select([], [], [], 0.01)",
                    "import threading\nwhile True: threading.Event().wait(0.01)",
                    TIMER_DESCRIPTOR):
            with self.subTest(way=way), subprocess.Popen([sys.executable, "-c", way],
                                                         stdout=subprocess.DEVNULL) as program:
                try:
                    self.assert_polls(program)
                finally:
                    program.kill()

    def assert_polls(self, program):
        try:
            calls = SystemCalls(program.pid)
        except PermissionError as error:
            self.skipTest(str(error))
        self.addCleanup(calls.stop)

        def is_found_out():
            calls.read()
            return any(TIMER.match(call) for call in calls.own)

        wait_for(is_found_out, "the program to be seen polling")


if __name__ == "__main__":
    unittest.main()
