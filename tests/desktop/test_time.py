# SPDX-License-Identifier: MIT
"""Scheduled prompts, with the clock sped up."""
import glob
import os
import time
import unittest
from datetime import datetime
from zoneinfo import ZoneInfo

from case import DesktopCase, is_sanitized, press_keys, type_text, visible_titles
from desktop import wait_for

# How many times faster time passes. A sanitized program answers more slowly on the bus, whose
# timeouts run faster too.
SPEED = 20 if is_sanitized() else 60
FAKETIME = glob.glob("/usr/lib/*/faketime/libfaketimeMT.so.1")[0]


class TimeTest(DesktopCase):
    def start_sped_up(self, begin=None, **preferences):
        """@p begin is, for example, "2026-11-15 09:00" in the desktop's time zone; default: now."""
        offset = 0
        if begin:
            moment = datetime.fromisoformat(begin).replace(tzinfo=ZoneInfo(os.environ["TZ"]))
            offset = int(moment.timestamp() - time.time())
        self.desktop.write_preferences(folderPath=self.desktop.journal(), **preferences)
        self.tovla = self.desktop.start_tovla(LD_PRELOAD=FAKETIME, FAKETIME=f"{offset:+d} x{SPEED}")
        self.item = self.tovla.wait_for_tray_item()

    def test_prompts_come_every_interval(self):
        self.start_sped_up("2026-11-15 09:00", intervalMinutes=5)
        titles = set()
        while len(titles) < 2:
            titles.add(self.wait_for_prompt())
            press_keys("Escape")
            self.wait_until_no_prompt()
        first, second = (60 * int(title[:2]) + int(title[3:]) for title in sorted(titles))
        self.assertIn(first, range(9 * 60 + 5, 9 * 60 + 10))
        self.assertIn(second - first, (4, 5, 6))

    def test_prompt_comes_while_a_menu_is_open(self):
        self.start_sped_up(intervalMinutes=3)
        self.open_menu()
        wait_for(self.prompt_titles, "the prompt")

    def test_note_opened_before_midnight_goes_to_that_day(self):
        started = time.monotonic()
        self.start_sped_up("2026-11-15 23:50", intervalMinutes=5)
        title = self.wait_for_prompt()
        self.assertTrue(title.startswith("23:5"), title)
        type_text("late")
        # There were ten minutes left until midnight.
        wait_for(lambda: time.monotonic() - started > 11 * 60 / SPEED, "midnight")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nlate\n"))
        self.assertEqual([path.name for path in self.day_files()], ["2026-11-15.md"])
        self.assertIn(f"## {title}\n", self.day_files()[0].read_text())

    def test_interval_that_overflows_ends_the_process(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal(),
                                       intervalMinutes=(2**63 - 1))
        tovla = self.desktop.start_tovla()
        self.assertNotEqual(tovla.wait_for_end(), 0)
        self.assertEqual(tovla.complaints(),
                         "tovla: the prompt interval in seconds does not fit 64 bits\n")

    def test_interval_beyond_64_bits_counts_as_none(self):
        self.start(intervalMinutes=2**63)
        self.assertEqual(self.item.labels()[0], "Every 60 min → Journal")

    def test_largest_interval_that_fits_runs(self):
        self.start(intervalMinutes=(2**63 - 1) // 60)
        self.assertEqual(self.item.labels()[0], f"Every {(2**63 - 1) // 60} min → Journal")
        self.assertEqual(visible_titles(), [])

    def test_damaged_preferences_start_with_defaults(self):
        path = self.desktop.preferences_file()
        path.parent.mkdir(parents=True)
        path.write_bytes(os.urandom(4096))
        self.tovla = self.desktop.start_tovla()
        self.item = self.tovla.wait_for_tray_item()
        self.assertEqual(self.item.labels()[0], "No folder selected")
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")


if __name__ == "__main__":
    unittest.main()
