# SPDX-License-Identifier: MIT
"""The tray item, its menu, and other ways to start and stop the program."""
import os
import signal
import subprocess
import unittest

import dbus

from case import (DesktopCase, active_window_title, geometry, press_keys, type_text,
                  visible_titles)
from desktop import search_windows, wait_for
from portal import Portal, scheme
from tray_host import TrayHost

BLACK = (0, 0, 0)
WHITE = (255, 255, 255)


def connect_to_bus():
    return dbus.bus.BusConnection(os.environ["DBUS_SESSION_BUS_ADDRESS"])


def next_name_on_bus():
    connection = connect_to_bus()
    name = connection.get_unique_name()
    connection.close()
    return name


class TrayTest(DesktopCase):
    def test_menu_is_as_described(self):
        self.start(intervalMinutes=25)
        self.assertEqual(self.item.labels(),
                         ["Every 25 min → Journal", None, "Write now", "Settings…", None,
                          "Check for Updates…", None, "Quit"])
        entries = [properties for _, properties in self.item.entries()]
        self.assertFalse(entries[0]["enabled"])
        self.assertTrue(all(entry.get("enabled", True) for entry in entries[1:]))
        self.assertEqual(self.shortcuts(), ["", "", "Control J", "Control comma", "", "", "",
                                            "Control Q"])

    def shortcuts(self):
        return [" ".join(map(str, properties.get("shortcut", [[]])[0]))
                for _, properties in self.item.entries()]

    def test_keys_are_named_as_the_panel_knows_them(self):
        for desktop, comma in (("KDE", ","), ("LXQt", ","), ("XFCE", "comma")):
            self.tovla = self.desktop.start_tovla(XDG_CURRENT_DESKTOP=desktop)
            self.item = self.tovla.wait_for_tray_item()
            self.assertIn(f"Control {comma}", self.shortcuts())
            self.desktop.stop_tovlas()

    def test_item_is_called_tovla(self):
        self.start()
        self.assertEqual(self.item.property("Id"), "tovla")
        self.assertEqual(self.item.property("Title"), "Tovla")
        self.assertEqual(self.item.property("ToolTip")[2], "Tovla")
        self.assertEqual(self.item.property("Status"), "Active")
        self.assertFalse(self.item.property("ItemIsMenu"))

    def test_item_stays_when_a_program_with_the_beginning_of_its_name_leaves(self):
        other = connect_to_bus()
        name = other.get_unique_name()

        while not next_name_on_bus().startswith(name):
            pass
        self.start()
        other.close()
        wait_for(lambda: not self.desktop.tray.bus.name_has_owner(name), "the other to be gone")
        self.assertIsNotNone(self.desktop.tray.item_of(self.tovla.process.pid))

    def test_icon_fills_each_of_its_pictures(self):
        self.start()
        sides = []
        for width, height, pixels in self.item.property("IconPixmap"):
            self.assertEqual(width, height)
            self.assertEqual(len(pixels), 4 * width * height)
            rows = [y for y in range(height)
                    if any(pixels[4 * (y * width + x)] > 64 for x in range(width))]
            # The outer ring takes 16.2 of 18 points.
            self.assertAlmostEqual(len(rows) / height, 0.9, delta=1.5 / height)
            sides.append(int(width))
        self.assertEqual(sides, [16, 18, 22, 24, 32, 48, 64])

    def test_icon_stands_out_from_the_panel(self):
        self.portal = Portal(**{"color-scheme": scheme(2)})
        self.addCleanup(self.portal.vanish)
        self.start()
        wait_for(lambda: self.icon_color() == BLACK, "a black icon on a light panel")
        self.portal.change("color-scheme", scheme(1))
        wait_for(lambda: self.icon_color() == WHITE, "a white icon on a dark panel")

    def icon_color(self):
        """The colour of the icon's most opaque pixel."""
        _, _, pixels = self.item.property("IconPixmap")[-1]
        _, *color = max(zip(*[iter(map(int, pixels))] * 4))
        return tuple(color)

    def test_icon_has_a_name_only_where_a_host_finds_the_file_and_recolours_it(self):
        self.start()
        self.assertEqual(self.item.property("IconName"), "")
        self.desktop.stop_tovlas()
        icons = self.desktop.home / "data" / "icons" / "hicolor" / "symbolic" / "apps"
        icons.mkdir(parents=True)
        (icons / "org.tovla.Tovla-symbolic.svg").write_text("<svg/>")
        for desktop, name in (("ubuntu:GNOME", "org.tovla.Tovla-symbolic"), ("MATE", "")):
            self.tovla = self.desktop.start_tovla(XDG_DATA_DIRS=str(self.desktop.home / "data"),
                                                  XDG_CURRENT_DESKTOP=desktop)
            self.item = self.tovla.wait_for_tray_item()
            self.assertEqual(self.item.property("IconName"), name)
            self.assertEqual(self.item.property("IconThemePath"), "")
            self.desktop.stop_tovlas()

    def test_label_follows_the_settings_while_the_menu_is_shown(self):
        self.start()
        self.item.labels()
        self.open_settings_from_menu()
        self.focus_number()
        press_keys("ctrl+a")
        type_text("25")
        press_keys("Return")
        wait_for(lambda: any(item["label"] == "Every 25 min → Journal"
                             for _, item in self.item.updates), "the new label")

    def open_settings_from_menu(self):
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")

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
        self.wait_for_prompt()
        type_text("from the menu")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nfrom the menu\n"))
        self.open_menu()
        press_keys("ctrl+q")
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_left_click_opens_the_menu_at_its_place(self):
        self.start()
        before = visible_titles()
        self.open_menu(700, 300)
        menu = [window for window in search_windows("--onlyvisible", "--class", "^tovla$")
                if geometry(window)[2] > 100]
        self.assertEqual((len(menu), len(before)), (1, 0))
        self.assertEqual(geometry(menu[0])[:2], (700, 300))
        press_keys("super+j")
        wait_for(self.prompt_titles, "the prompt by the key that is Command elsewhere")

    def test_item_is_a_menu_where_no_place_can_be_told(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        self.tovla = self.desktop.start_tovla(XDG_SESSION_TYPE="wayland")
        self.assertTrue(self.tovla.wait_for_tray_item().property("ItemIsMenu"))

    def test_watcher_that_hangs_holds_nothing_up(self):
        self.desktop.tray.answers = False
        try:
            self.tovla = self.desktop.start_tovla()
            wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
            self.tovla.act_when_ready("write-now")
            wait_for(self.prompt_titles, "the prompt")
            self.assertTrue(self.desktop.tray.unanswered)
            self.assertIsNone(self.desktop.tray.item_of(self.tovla.process.pid))
        finally:
            self.desktop.tray.answers = True
        for answer in self.desktop.tray.unanswered:
            answer(True)
        self.desktop.tray.unanswered.clear()
        self.tovla.wait_for_tray_item().click("Quit")
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

    def test_panel_that_is_replaced_in_one_step_gets_the_icon(self):
        self.start()
        other = TrayHost(address=os.environ["DBUS_SESSION_BUS_ADDRESS"], replaces=True)
        try:
            item = wait_for(lambda: other.item_of(self.tovla.process.pid), "the tray item")
            item.click("Write now")
            wait_for(self.prompt_titles, "the prompt")
        finally:
            other.vanish()
            self.desktop.tray.vanish()
            self.desktop.tray.appear()

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

    def test_action_that_comes_with_the_start_is_carried_out(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        bus = dbus.SessionBus()
        asked = []

        def ask(owner):
            if owner:
                asked.append(owner)
                bus.call_async(owner, "/org/tovla/Tovla", "org.freedesktop.Application",
                               "ActivateAction", "sava{sv}", ("write-now", [], {}), None, None)

        watch = bus.watch_name_owner("org.tovla.Tovla", ask)
        try:
            for start in range(1, 11):
                tovla = self.desktop.start_tovla()
                wait_for(lambda: len(asked) == start, "the name on the bus")
                wait_for(self.prompt_titles, f"the prompt of start {start}")
                tovla.act("quit")
                tovla.wait_for_end()
        finally:
            watch.cancel()

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
