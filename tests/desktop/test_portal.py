# SPDX-License-Identifier: MIT
"""The portals that are asked for a folder and to hold the session."""
import unittest

import dbus

import accessibility
from case import SETTINGS, DesktopCase, active_window_title, press_keys, type_text, visible_titles
from desktop import output, wait_for
from portal_requests import RequestPortal, SessionManager
from xsettings import STANDARD_DPI, SettingsDaemon


class PortalTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.portal = RequestPortal()
        self.addCleanup(self.lose_portal)

    def lose_portal(self):
        if self.portal:
            self.portal.vanish()
            self.portal = None

    def wait_for_request(self, count=1):
        wait_for(lambda: len(self.portal.asked) == count, "the request to the portal")
        return self.portal.asked[-1]

    def wait_for_folder(self, folder):
        wait_for(lambda: f"folderPath={folder}\n" in self.desktop.preferences_file().read_text(),
                 f"the folder {folder}")

    def ask_for_folder(self):
        self.open_settings()
        accessibility.press("Choose…")
        return self.wait_for_request()

    def test_folder_is_chosen_in_the_desktops_own_dialog(self):
        method, (parent, title), options, request = self.ask_for_folder()
        self.assertEqual(method, "OpenFile")
        self.assertEqual(parent, f"x11:{int(output('xdotool', 'getactivewindow')):x}")
        self.assertEqual(title, SETTINGS)
        self.assertEqual((options["directory"], options["modal"], options["accept_label"]),
                         (True, True, "Choose"))
        request.Response(0, {"uris": dbus.Array(["file:///tmp/My%20Journal%20%C3%A9"], "s")})
        self.wait_for_folder("/tmp/My Journal é")

    def test_dialog_belongs_to_the_window_at_a_new_scale(self):
        daemon = SettingsDaemon(Xft_DPI=STANDARD_DPI)
        self.addCleanup(daemon.close)
        self.open_settings()
        before = output("xdotool", "getactivewindow")
        daemon.publish(Xft_DPI=2 * STANDARD_DPI)
        wait_for(lambda: active_window_title() == SETTINGS
                 and output("xdotool", "getactivewindow") != before, "a new window")
        accessibility.press("Choose…")
        _, (parent, _), *_ = self.wait_for_request()
        self.assertEqual(parent, f"x11:{int(output('xdotool', 'getactivewindow')):x}")

    def test_cancelled_dialog_leaves_the_folder(self):
        *_, request = self.ask_for_folder()
        before = self.desktop.preferences_file().read_text()
        request.Response(1, dbus.Dictionary(signature="sv"))
        accessibility.press("Choose…")
        self.wait_for_request(2)
        self.assertEqual(self.desktop.preferences_file().read_text(), before)

    def test_folder_whose_name_is_no_utf8_is_refused(self):
        *_, request = self.ask_for_folder()
        before = self.desktop.preferences_file().read_text()
        request.Response(0, {"uris": dbus.Array(["file:///tmp/caf%E9"], "s")})
        wait_for(lambda: active_window_title() == "Journal", "the alert")
        self.assertEqual(self.desktop.preferences_file().read_text(), before)

    def test_portal_that_goes_away_leaves_the_toolkits_dialog(self):
        self.ask_for_folder()
        self.lose_portal()
        accessibility.find("Choose")
        wait_for(lambda: active_window_title() != SETTINGS, "the toolkit's dialog")

    def test_log_out_is_held_while_there_is_a_note(self):
        self.start()
        self.open_prompt()
        type_text(" ")
        self.assertEqual(self.portal.asked, [])
        type_text("note")
        method, (_, flags), options, request = self.wait_for_request()
        self.assertEqual((method, flags, options["reason"]),
                         ("Inhibit", 1, "A note is being written"))
        self.assertFalse(request.is_closed)
        press_keys("ctrl+a", "Delete")
        wait_for(lambda: request.is_closed, "the session to be let go")
        type_text("again")
        *_, request = self.wait_for_request(2)
        press_keys("Escape")
        wait_for(lambda: request.is_closed, "the session to be let go with the card")
        self.item.click("Quit")
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_session_manager_is_asked_rather_than_the_portal(self):
        manager = SessionManager()
        self.addCleanup(manager.vanish)
        self.start()
        self.open_prompt()
        type_text("note")
        wait_for(lambda: list(manager.held.values())
                 == [("org.tovla.Tovla", "A note is being written", 1)], "the session to be held")
        press_keys("ctrl+Return")
        wait_for(lambda: not manager.held, "the session to be let go")
        self.assertEqual(self.portal.asked, [])


if __name__ == "__main__":
    unittest.main()
