# SPDX-License-Identifier: MIT
"""The tray item, its menu, and what else starts and stops the program."""
import signal
import subprocess
import unittest

import accessibility
from case import (DesktopCase, active_window_title, press_keys, type_text, visible_titles)
from desktop import wait_for


class TrayTest(DesktopCase):
    def test_menu_is_as_described(self):
        self.start(intervalMinutes=25)
        self.assertEqual(self.item.labels(),
                         ["Every 25 min → Journal", None, "Write now", "Settings…", None,
                          "Check for Updates…", None, "Quit"])
        entries = [properties for _, properties in self.item.entries()]
        self.assertFalse(entries[0]["enabled"])
        self.assertTrue(all(entry.get("enabled", True) for entry in entries[1:]))
        keys = [[list(map(str, key)) for key in entry.get("shortcut", [])] for entry in entries]
        self.assertEqual(keys, [[], [], [["Control", "J"]], [["Control", ","]], [], [], [],
                                [["Control", "Q"]]])

    def test_icon_has_the_installed_name_and_pictures(self):
        self.start()
        self.assertEqual(self.item.property("IconName"), "org.tovla.Tovla-symbolic")
        self.assertTrue(self.item.property("IconPixmap"))
        self.assertEqual(self.item.property("Title"), "tovla")

    def test_folder_with_marks_is_shown_whole(self):
        self.start(folderPath="/home/ann/my_journal & co/")
        self.assertEqual(self.item.labels()[0], "Every 60 min → my_journal & co")

    def test_launch_with_a_folder_opens_no_window(self):
        self.start()
        self.item.labels()
        self.assertEqual(visible_titles(), [])

    def test_left_click_opens_a_menu_with_working_keys(self):
        self.start()
        self.open_menu()
        press_keys("ctrl+comma")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        self.open_menu()
        press_keys("ctrl+j")
        wait_for(self.prompt_titles, "the prompt")
        type_text("from the menu")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nfrom the menu\n"))
        self.open_menu()
        press_keys("ctrl+q")
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_settings_come_to_the_front_again(self):
        self.start()
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        self.desktop.start("xterm", "-T", "other")
        wait_for(lambda: active_window_title() == "other", "the other program")
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        self.assertEqual(visible_titles().count("Tovla Settings"), 1)
        press_keys("ctrl+w")
        wait_for(lambda: "Tovla Settings" not in visible_titles(), "the settings to close")
        self.assertTrue(self.tovla.is_running())

    def test_panel_that_restarts_gets_the_icon_again(self):
        self.start()
        self.desktop.tray.vanish()
        self.desktop.tray.appear()
        self.item = self.tovla.wait_for_tray_item()
        self.item.click("Write now")
        wait_for(self.prompt_titles, "the prompt")

    def test_panel_that_starts_late_gets_the_icon(self):
        self.desktop.tray.vanish()
        try:
            self.desktop.write_preferences(folderPath=self.desktop.journal())
            tovla = self.desktop.start_tovla()
            tovla.act_when_ready("write-now")
            wait_for(self.prompt_titles, "the prompt without a tray")
        finally:
            self.desktop.tray.appear()
        tovla.wait_for_tray_item().click("Quit")
        self.assertEqual(tovla.wait_for_end(), 0)

    def test_host_that_registers_after_its_watcher_gets_the_icon(self):
        self.desktop.tray.has_host = False
        try:
            tovla = self.desktop.start_tovla()
            wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
            self.assertIsNone(self.desktop.tray.item_of(tovla.process.pid))
        finally:
            self.desktop.tray.RegisterStatusNotifierHost("a host")
        tovla.wait_for_tray_item()

    def test_second_launch_activates_the_first_and_ends(self):
        self.start()
        second = self.desktop.start_tovla()
        self.assertEqual(second.wait_for_end(), 0)
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        self.assertIsNone(self.desktop.tray.item_of(second.process.pid))

    def test_second_launch_gives_up_on_a_copy_that_hangs(self):
        self.start()
        self.tovla.process.send_signal(signal.SIGSTOP)
        try:
            second = self.desktop.start_tovla()
            self.assertEqual(second.wait_for_end(), 1)
            self.assertEqual(second.complaints(),
                             "tovla: another copy is running but does not answer\n")
        finally:
            self.tovla.process.send_signal(signal.SIGCONT)

    def test_launcher_actions_reach_the_program(self):
        self.start()
        self.tovla.act("settings")
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
        self.tovla.act("write-now")
        wait_for(self.prompt_titles, "the prompt")
        self.tovla.act("no-such-action")
        self.tovla.act("quit")
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_launch_by_the_bus_opens_nothing_when_a_folder_is_chosen(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        tovla = self.desktop.start_tovla(DBUS_STARTER_BUS_TYPE="session")
        item = tovla.wait_for_tray_item()
        activate = ["gdbus", "call", "--session", "--dest", "org.tovla.Tovla", "--object-path",
                    "/org/tovla/Tovla", "--method", "org.freedesktop.Application.Activate", "{}"]
        subprocess.run(activate, check=True, stdout=subprocess.DEVNULL)
        item.labels()
        self.assertEqual(visible_titles(), [])
        subprocess.run(activate, check=True, stdout=subprocess.DEVNULL)
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")

    def test_signals_end_it_cleanly(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.start()
            self.tovla.process.send_signal(number)
            self.assertEqual(self.tovla.wait_for_end(), 0)


if __name__ == "__main__":
    unittest.main()
