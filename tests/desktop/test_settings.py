# SPDX-License-Identifier: MIT
"""The settings window, used like a user would and checked against the preferences file."""
import unittest

import accessibility
from case import (DARK, LIGHT, SETTINGS, DesktopCase, active_window_title, click, color_at,
                  geometry_of, press_keys, type_text, visible_titles, window_of)
from desktop import output, wait_for


class SettingsTest(DesktopCase):
    def wait_for_preference(self, line):
        wait_for(lambda: self.desktop.preferences_file().exists()
                 and line in self.desktop.preferences_file().read_text().splitlines(), line)

    def test_number_is_taken_on_return_and_clamped(self):
        self.open_settings()
        for typed, stored in (("25", 25), ("5000", 1440), ("0", 1)):
            self.focus_number()
            press_keys("ctrl+a")
            type_text(typed)
            press_keys("Return")
            self.wait_for_preference(f"intervalMinutes={stored}")
        accessibility.find("minute")
        wait_for(lambda: self.item.labels()[0] == "Every 1 min → Journal", "the menu to follow")

    def test_edited_number_is_taken_when_the_window_closes(self):
        self.open_settings()
        self.focus_number()
        press_keys("ctrl+a")
        type_text("35")
        press_keys("ctrl+w")
        self.wait_for_preference("intervalMinutes=35")
        wait_for(lambda: SETTINGS not in visible_titles(), "the settings to close")

    def test_stepper_steps_by_five(self):
        self.open_settings(intervalMinutes=1438)
        accessibility.press("Increase")
        self.wait_for_preference("intervalMinutes=1440")
        accessibility.press("Decrease")
        self.wait_for_preference("intervalMinutes=1435")

    def test_other_windows_may_cover_the_settings(self):
        self.open_settings()
        self.assertNotIn("_ABOVE", output("xprop", "-name", SETTINGS, "_NET_WM_STATE"))

    def test_minimised_settings_are_not_lost(self):
        self.open_settings()
        window = window_of(SETTINGS)
        output("xdotool", "windowminimize", str(window))
        wait_for(lambda: SETTINGS not in visible_titles(), "the settings to be out of sight")
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to come back")
        wait_for(lambda: "SKIP_TASKBAR" in output("xprop", "-id", str(window), "_NET_WM_STATE"),
                 "the settings to be out of the taskbar")

    def test_settings_on_another_workspace_stay_open(self):
        """Window managers call a window on another workspace iconic too, and GNOME's one that waits
        for its frame."""
        self.open_settings()
        window = window_of(SETTINGS)
        output("xdotool", "set_desktop", "1")
        wait_for(lambda: "Iconic" in output("xprop", "-id", str(window), "WM_STATE"),
                 "the settings to be iconic")
        output("xdotool", "set_desktop", "0")
        wait_for(lambda: SETTINGS in visible_titles(), "the settings to be seen again")

    def test_theme_is_seen_at_once(self):
        self.open_settings(theme="light")
        self.wait_for_settings_background(LIGHT)
        accessibility.press("Dark")
        self.wait_for_preference("theme=dark")
        self.wait_for_settings_background(DARK)
        accessibility.press("Light")
        self.wait_for_settings_background(LIGHT)
        accessibility.press("Follow System")
        self.wait_for_preference("theme=system")

    def test_sound_is_chosen_with_keys(self):
        self.open_settings()
        accessibility.find("Sound").get_component_iface().grab_focus()
        press_keys("Down")
        self.wait_for_preference("soundName=Sosumi")

    def test_window_reopens_where_it_was(self):
        self.open_settings()
        window = output("xdotool", "getactivewindow")
        output("xdotool", "windowmove", "--sync", window, "100", "150")
        place = geometry_of(SETTINGS)
        press_keys("ctrl+w")
        wait_for(lambda: SETTINGS not in visible_titles(), "the settings to close")
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to be active")
        wait_for(lambda: geometry_of(SETTINGS) == place, f"the window at {place}")

    def test_tab_goes_through_the_controls_in_order(self):
        self.open_settings()
        accessibility.find("Choose…").get_component_iface().grab_focus()
        for name in ("Prompt Frequency", None, "Follow System", "Sound", "Preview"):
            press_keys("Tab")
            if name:
                wait_for(lambda: any(accessibility.is_focused(node) and node.get_name() == name
                                     for window in accessibility.windows()
                                     for node in accessibility.nodes(window)),
                         f"the focus on {name}")

    def test_click_on_preview_leaves_the_choice(self):
        self.open_settings(soundName="Glass")
        node = accessibility.find("Preview")
        box = node.get_component_iface().get_extents(accessibility.Atspi.CoordType.SCREEN)
        click(box.x + box.width // 2, box.y + box.height // 2)
        self.assertIn("soundName=Glass", self.desktop.preferences_file().read_text())
        self.assertTrue(self.tovla.is_running())


if __name__ == "__main__":
    unittest.main()
