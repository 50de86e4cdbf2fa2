# SPDX-License-Identifier: MIT
"""The end of a session: immediate, silent and clean, whatever is open."""
import os
import signal
import subprocess
import unittest

import accessibility
import portal_requests
import session_manager
from case import DesktopCase, active_window_title, press_keys, type_text
from desktop import output, wait_for


class SessionTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.manager = session_manager.SessionManager()

    def start_in_session(self, **preferences):
        os.environ["SESSION_MANAGER"] = self.manager.address
        try:
            self.start(**preferences)
        finally:
            del os.environ["SESSION_MANAGER"]
        wait_for(lambda: self.manager.saves == 1, "the program to be part of the session")

    def log_out(self, interact=session_manager.INTERACT_ANY):
        self.manager.ask_to_save(interact)
        wait_for(lambda: self.manager.saves == 2, "the program to have saved")
        self.assertEqual(self.manager.interactions, 0)
        self.manager.ask_to_die()

    def open_alert(self):
        """Opens the alert above a prompt that says that the note could not be saved."""
        self.desktop.journal().write_text("a file where the folder should be")
        self.addCleanup(self.desktop.journal().unlink)
        self.open_prompt()
        type_text("nowhere to go")
        press_keys("ctrl+Return")
        wait_for(lambda: active_window_title() == "Journal", "the alert to be active")

    def assert_ended_silently(self):
        self.assertEqual(self.tovla.wait_for_end(), 0)
        self.assertEqual(self.tovla.complaints(), "")

    def test_session_does_not_start_it_again(self):
        self.start_in_session()
        wait_for(lambda: self.manager.restart_style is not None, "the restart style")
        self.assertEqual(self.manager.restart_style, session_manager.RESTART_NEVER)

    def test_logging_out_ends_it(self):
        self.start_in_session()
        self.log_out()
        self.assert_ended_silently()
        self.assertEqual(self.manager.restart_style, session_manager.RESTART_NEVER)

    def test_logging_out_ends_it_with_a_blank_prompt(self):
        self.start_in_session()
        self.open_prompt()
        type_text("  ")
        self.log_out()
        self.assert_ended_silently()

    def test_note_in_the_prompt_cancels_a_logout(self):
        self.start_in_session()
        editor = self.open_prompt()
        type_text("half a no")
        self.manager.ask_to_save()
        wait_for(lambda: self.manager.has_cancelled, "the logout to be cancelled")
        type_text("te")
        wait_for(lambda: accessibility.text_of(editor) == "half a note", "what was typed")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nhalf a note\n"))
        self.wait_until_no_prompt()
        self.manager.ask_to_save()
        wait_for(lambda: self.manager.saves == 2, "the program to have saved")
        self.manager.ask_to_die()
        self.assert_ended_silently()

    def test_logout_that_must_not_be_cancelled_ends_it_with_a_note_in_the_prompt(self):
        self.start_in_session()
        self.open_prompt()
        type_text("half a no")
        self.log_out(session_manager.INTERACT_NONE)
        self.assert_ended_silently()
        self.assertEqual(self.day_files(), [])

    def test_manager_that_asks_the_user_itself_is_left_to_it(self):
        """GNOME's session manager is told over the bus, and lists the program in its own question."""
        manager = portal_requests.SessionManager()
        self.addCleanup(manager.vanish)
        self.start_in_session()
        self.open_prompt()
        type_text("half a no")
        wait_for(lambda: manager.held, "the session to be held")
        self.item.labels()  # once it has answered this, it has read the manager's answer
        self.log_out()
        self.assert_ended_silently()

    def test_logout_that_must_not_be_cancelled_ends_it_with_an_alert_above_the_prompt(self):
        self.start_in_session()
        self.open_alert()
        self.log_out(session_manager.INTERACT_NONE)
        self.assert_ended_silently()

    def test_logging_out_ends_it_with_the_folder_chooser_open(self):
        self.start_in_session()
        self.item.click("Settings…")
        accessibility.press("Choose…")
        accessibility.find("Choose")
        self.log_out()
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_logout_that_is_cancelled_leaves_the_prompt(self):
        self.start_in_session()
        editor = self.open_prompt()
        self.manager.ask_to_save()
        wait_for(lambda: self.manager.saves == 2, "the program to have saved")
        self.manager.cancel()
        type_text("still here")
        wait_for(lambda: accessibility.text_of(editor) == "still here", "what was typed")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nstill here\n"))

    def test_signals_end_it_with_a_prompt_open(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.start()
            self.open_prompt()
            self.tovla.process.send_signal(number)
            self.assert_ended_silently()

    def test_signals_end_it_with_an_alert_open(self):
        self.start()
        self.open_alert()
        self.tovla.process.send_signal(signal.SIGTERM)
        self.assert_ended_silently()

    def test_display_that_goes_away_ends_it(self):
        display, name = self.desktop.start_display("640x480")
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        self.tovla = self.desktop.start_tovla(DISPLAY=name)
        self.tovla.act_when_ready("write-now")
        wait_for(lambda: output("xwininfo", "-display", name, "-root", "-tree").count('"tovla"'),
                 "the prompt")
        os.killpg(display.pid, signal.SIGKILL)
        self.assertEqual(self.tovla.wait_for_end(), 1)

    def test_without_a_display_one_line_says_so(self):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        for display in ({}, {"DISPLAY": ":12345"}):
            with self.subTest(display=display):
                result = subprocess.run([os.environ["TOVLA"]], env=environment | display,
                                        capture_output=True, text=True, timeout=60, check=False)
                self.assertEqual(result.returncode, 1)
                self.assertRegex(result.stderr, "^tovla: cannot connect to a display: .*\n$")


if __name__ == "__main__":
    unittest.main()
