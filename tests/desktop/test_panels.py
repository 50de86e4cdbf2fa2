# SPDX-License-Identifier: MIT
"""A panel with an XEmbed system tray, and a session bus that goes away."""
import os
import re
import signal
import unittest

import dbus

from case import (DesktopCase, active_window_title, click, press_keys, type_text,
                  visible_titles)
from desktop import output, wait_for
from test_time import FAKETIME
from tray_host import TrayHost

PANEL_HEIGHT = 32
# Settings of tint2, a panel that only has an XEmbed tray.
PANEL_SETTINGS = f"""
panel_items = S
panel_size = 100% {PANEL_HEIGHT}
panel_position = bottom center horizontal
systray_padding = 4 4 4
"""


def docked_icon():
    """The centre of the icon, once it is in the panel at the lower edge. It is the only window with
    the plain name; panels move it around before they show it."""
    line = re.search(r'"tovla": \("tovla" "tovla"\)  (\d+)x(\d+).* \+(\d+)\+(\d+)$',
                     output("xwininfo", "-root", "-tree"), re.MULTILINE)
    if not line or "tovla" not in visible_titles():
        return None
    width, height, x, y = map(int, line.groups())
    return (x + width // 2, y + height // 2) if y > 900 - PANEL_HEIGHT else None


def kill(process):
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()


def act(action):
    """Like a launcher: without asking for the interface first, which would start the program."""
    dbus.SessionBus().call_blocking("org.tovla.Tovla", "/org/tovla/Tovla",
                                    "org.freedesktop.Application", "ActivateAction", "sava{sv}",
                                    (action, [], {}))


class PanelsTest(DesktopCase):
    desktop_options = {"tray": False}

    def setUp(self):
        super().setUp()
        self.desktop.write_preferences(folderPath=self.desktop.journal(), intervalMinutes=5)

    def start_panel(self):
        settings = self.desktop.home / "tint2rc"
        settings.write_text(PANEL_SETTINGS)
        panel = self.desktop.start("tint2", "-c", str(settings))
        self.addCleanup(lambda: panel.poll() is None and kill(panel))
        return panel

    def choose(self, key, button=1):
        """Clicks the icon in the panel and chooses the menu item with this key."""
        place = wait_for(docked_icon, "the icon in the panel")
        self.desktop.wait_until_still()
        before = len(visible_titles())
        click(*place, button)
        wait_for(lambda: len(visible_titles()) > before, "the menu")
        press_keys(key)

    def save(self, note):
        type_text(note)
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(f"{note}\n".encode()))
        self.wait_until_no_prompt()

    def end(self):
        self.tovla.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_old_tray_that_starts_late_and_crashes_gets_the_icon_each_time(self):
        self.tovla = self.desktop.start_tovla()
        self.tovla.act_when_ready("write-now")
        self.wait_for_prompt()
        self.save("without a panel")
        panel = self.start_panel()
        self.choose("ctrl+j")
        self.wait_for_prompt()
        self.save("from the panel")
        kill(panel)
        wait_for(lambda: "tovla" not in visible_titles(), "the icon to go")
        self.start_panel()
        self.choose("ctrl+q", button=3)
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_bus_that_goes_away_leaves_the_old_tray(self):
        bus, address = self.desktop.start_bus()
        self.start_panel()
        self.tovla = self.desktop.start_tovla(DBUS_SESSION_BUS_ADDRESS=address)
        wait_for(docked_icon, "the icon in the panel")
        kill(bus)
        self.choose("ctrl+j")
        self.wait_for_prompt()
        self.save("without a bus")
        self.choose("ctrl+comma")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        press_keys("Tab", "ctrl+a")
        type_text("25")
        press_keys("ctrl+w")
        wait_for(lambda: "intervalMinutes=25" in self.desktop.preferences_file().read_text(),
                 "the interval in the preferences")
        self.end()

    def test_bus_that_goes_away_leaves_the_prompts_that_come_by_themselves(self):
        bus, address = self.desktop.start_bus()
        host = TrayHost(address=address)
        self.tovla = self.desktop.start_tovla(DBUS_SESSION_BUS_ADDRESS=address,
                                              LD_PRELOAD=FAKETIME, FAKETIME="+0 x60")
        item = wait_for(lambda: host.item_of(self.tovla.process.pid), "the tray item")
        item.click("Settings…")
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
        self.wait_for_prompt()
        type_text("with and ")
        kill(bus)
        self.save("without a bus")
        self.wait_for_prompt()
        self.save("again")
        self.assertIn("Tovla Settings", visible_titles())
        self.end()

    def test_launch_by_hand_without_any_panel_opens_the_settings(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        for environment in ({"DBUS_STARTER_BUS_TYPE": "session"},
                            {"XDG_ACTIVATION_TOKEN": "launcher/1"},
                            {"DESKTOP_STARTUP_ID": "launcher_TIME1"}):
            with self.subTest(environment=environment):
                self.desktop.start_tovla(**environment)
                wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
                self.desktop.stop_tovlas()
                wait_for(lambda: not visible_titles(), "the settings to go")

    def test_action_that_starts_it_without_any_panel_opens_no_settings(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal(), intervalMinutes=2)
        self.let_the_bus_start_it("/usr/bin/env", f"LD_PRELOAD={FAKETIME}", "FAKETIME='+0 x60'")
        act("write-now")
        self.wait_for_prompt()
        self.save("asked for")
        self.wait_for_prompt()  # by itself, minutes after the search for a panel has ended
        titles = visible_titles()
        act("quit")
        self.assertNotIn("Tovla Settings", titles)

    def let_the_bus_start_it(self, *prefix):
        service = self.desktop.home / "runtime/dbus-1/services/org.tovla.Tovla.service"
        self.addCleanup(service.unlink)
        service.write_text("[D-BUS Service]\nName=org.tovla.Tovla\n"
                           f"Exec={' '.join(prefix)} {os.environ['TOVLA']}\n")
        dbus.SessionBus().get_object("org.freedesktop.DBus", "/").ReloadConfig()

    def test_start_at_login_without_any_panel_opens_nothing(self):
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        tovla = self.desktop.start_tovla()
        # Later than any window that the start itself would open.
        tovla.act_when_ready("write-now")
        wait_for(visible_titles, "the prompt")
        self.assertNotIn("Tovla Settings", visible_titles())


if __name__ == "__main__":
    unittest.main()
