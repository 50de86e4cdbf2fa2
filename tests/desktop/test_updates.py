# SPDX-License-Identifier: MIT
""""Check for Updates…", from the menu to the restarted program."""
import signal
import unittest

import accessibility
from case import (DARK, DesktopCase, active_window_title, color_at, geometry_of, press_keys,
                  type_text, visible_titles)
from desktop import wait_for
from updates import (BROKEN, NEWER, OFFER, UP_TO_DATE, VERSION, UpdateService,
                     start_system_bus)

TITLE = "Software Update"


class UpdatesTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        start_system_bus(cls.desktop)

    def setUp(self):
        super().setUp()
        self.service = None

    def tearDown(self):
        super().tearDown()
        if self.service:
            self.service.stop()

    def check(self, scenario):
        self.start()
        self.service = UpdateService(self.desktop, scenario)
        self.item.click("Check for Updates…")
        self.wait_until_active()

    def wait_until_active(self):
        wait_for(lambda: active_window_title() == TITLE, "the update window to be active")
        wait_for(accessibility.focused_name, "the keyboard's focus in it")

    def wait_until_closed(self):
        wait_for(lambda: TITLE not in visible_titles(), "the update window to close")

    def test_newest_version_is_up_to_date(self):
        self.check(UP_TO_DATE)
        accessibility.find("You're up to date!")
        accessibility.find(f"Tovla {VERSION} is currently the newest version available.")
        press_keys("Return")
        self.wait_until_closed()
        self.assertTrue(self.tovla.is_running())

    def test_update_is_installed_and_the_program_runs_anew(self):
        self.check(OFFER)
        accessibility.find("A new version of Tovla is available!")
        notes = accessibility.find("Release Notes", accessibility.Atspi.Role.TEXT)
        self.assertIn("• Two new alert sounds", accessibility.text_of(notes))
        accessibility.press("Install Update")
        accessibility.find("Update Installed")
        accessibility.find(f"Tovla is now updated to version {NEWER}! Restart Tovla to use it.")
        before = self.item
        accessibility.press("Restart Now")
        wait_for(lambda: self.tovla.wait_for_tray_item().owner != before.owner, "a new tray item")
        self.assertTrue(self.tovla.is_running())  # as the same process
        self.assertEqual(self.service.calls().count("UpdatePackages"), 1)

    def test_open_note_is_finished_before_the_restart(self):
        self.check(OFFER)
        accessibility.press("Install Update")
        accessibility.find("Update Installed")
        self.open_prompt()
        type_text("nothing lost")
        before = self.item
        accessibility.press("Restart Now")
        self.wait_until_closed()
        self.assertEqual(self.tovla.wait_for_tray_item().owner, before.owner)
        self.item.click("Write now")  # returns keyboard focus to the card
        wait_for(lambda: self.prompt_titles() == [active_window_title()], "the card to be active")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nnothing lost\n"))
        wait_for(lambda: self.tovla.wait_for_tray_item().owner != before.owner, "a new tray item")

    def test_note_that_is_thrown_away_makes_way_for_the_restart(self):
        self.check(OFFER)
        accessibility.press("Install Update")
        accessibility.find("Update Installed")
        self.open_prompt()
        type_text("thrown away")
        before = self.item
        accessibility.press("Restart Now")
        self.wait_until_closed()
        accessibility.press("Close")
        wait_for(lambda: self.tovla.wait_for_tray_item().owner != before.owner, "a new tray item")
        self.assertEqual(self.prompt_titles(), [])
        self.assertEqual(self.day_files(), [])

    def test_program_that_is_told_to_end_does_not_start_again(self):
        for end in (lambda: self.tovla.process.send_signal(signal.SIGTERM),
                    lambda: self.item.click("Quit")):
            self.check(OFFER)
            accessibility.press("Install Update")
            accessibility.find("Update Installed")
            self.open_prompt()
            accessibility.press("Restart Now")
            self.wait_until_closed()
            end()
            self.assertEqual(self.tovla.wait_for_end(), 0)
            self.tearDown()

    def test_later_leaves_everything(self):
        self.check(OFFER)
        accessibility.find("Remind Me Later")
        press_keys("Escape")
        self.wait_until_closed()
        self.assertNotIn("UpdatePackages", self.service.calls())
        self.item.click("Check for Updates…")
        self.service.wait_for_call("SearchFiles", 2)

    def test_check_that_gets_no_answer_is_cancelled(self):
        self.check({**UP_TO_DATE, "RefreshCache": [{"then": "hang"}]})
        accessibility.find("Checking for updates…")
        self.service.wait_for_call("RefreshCache")
        self.item.click("Check for Updates…")
        self.open_prompt()
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.assertEqual(self.service.calls().count("SearchFiles"), 1)
        accessibility.press("Cancel")
        self.wait_until_closed()
        self.item.click("Check for Updates…")
        self.service.wait_for_call("SearchFiles", 2)

    def test_failure_is_told_with_its_details_on_request(self):
        self.check(BROKEN)
        accessibility.find("Update Error!")
        accessibility.find("The update information is improperly signed, so it was not used.")
        accessibility.press("Details")
        details = accessibility.find("Details", accessibility.Atspi.Role.TEXT)
        self.assertEqual(accessibility.text_of(details), "BADSIG 0123 <b>Eve</b>")
        press_keys("Escape")
        self.wait_until_closed()

    def test_service_that_is_missing_is_told(self):
        self.check(UP_TO_DATE)
        press_keys("Return")
        self.wait_until_closed()
        self.service.stop()
        self.item.click("Check for Updates…")
        accessibility.find("The system's update service is not available. Use your software "
                           "manager to update Tovla.")


if __name__ == "__main__":
    unittest.main()
