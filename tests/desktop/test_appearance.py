# SPDX-License-Identifier: MIT
"""The windows follow the desktop's settings portal."""
import unittest

import dbus

import accessibility
from case import (DARK, LIGHT, SETTINGS, DesktopCase, active_window_title, click, color_at,
                  geometry, geometry_of, press_keys, visible_titles)
from desktop import output, search_windows, wait_for
from portal import Portal, scheme
from xsettings import SettingsDaemon

def popup_geometry():
    """The geometry of the program's smallest window; popups cannot be found by title."""
    boxes = [geometry(window) for window in search_windows("--onlyvisible", "--class", "^tovla$")]
    return min(boxes, key=lambda box: box[2] * box[3])


def is_dark(color):
    return all(int(color[index:index + 2], 16) < 0x80 for index in (1, 3, 5))


class AppearanceTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.portal = None

    def tearDown(self):
        super().tearDown()
        if self.portal:
            self.portal.vanish()

    def picture_of_settings(self):
        x, y, width, height = geometry_of(SETTINGS)
        return output("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}",
                      "-depth", "8", "txt:-")

    def wait_for_color(self, color, is_there=True):
        wait_for(lambda: (color in self.picture_of_settings()) == is_there, f"the colour {color}")

    def test_dark_desktop_is_followed_and_its_changes_too(self):
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.open_settings()
        self.wait_for_settings_background(DARK)
        self.portal.change("color-scheme", scheme(2))
        self.wait_for_settings_background(LIGHT)
        self.portal.change("color-scheme", scheme(1))
        self.wait_for_settings_background(DARK)

    def test_forced_appearance_does_not_follow(self):
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.open_settings(theme="light")
        self.wait_for_settings_background(LIGHT)

    def test_open_chooser_follows(self):
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.open_settings()
        accessibility.press("Choose…")
        accessibility.find("Choose")
        wait_for(lambda: active_window_title() != SETTINGS, "the chooser to be active")
        x, y, _, height = geometry_of(active_window_title())
        for number, color in ((1, DARK), (2, LIGHT), (1, DARK)):
            self.portal.change("color-scheme", scheme(number))
            wait_for(lambda: color_at(x + 3, y + height // 2) == color, f"the chooser to be {color}")

    def test_menu_and_list_look_like_their_window(self):
        self.open_settings(theme="dark")
        field = accessibility.find("Prompt Frequency", accessibility.Atspi.Role.TEXT)
        for node, button, key in ((field, 3, "Escape"), (accessibility.find("Sound"), 1, "Escape")):
            before = len(visible_titles())
            box = node.get_component_iface().get_extents(accessibility.Atspi.CoordType.SCREEN)
            click(box.x + box.width // 2, box.y + box.height // 2, button)
            wait_for(lambda: len(visible_titles()) > before, "the popup")
            x, y, width, height = popup_geometry()
            wait_for(lambda: is_dark(color_at(x + width - 4, y + height // 2)), "a dark popup")
            press_keys(key)
            wait_for(lambda: len(visible_titles()) == before, "the popup to close")

    def test_switching_repaints_all_of_the_window(self):
        self.open_settings(theme="light")
        light = self.picture_of_settings()
        accessibility.press("Dark")
        self.wait_for_settings_background(DARK)
        accessibility.press("Light")
        self.wait_for_settings_background(LIGHT)
        wait_for(lambda: self.picture_of_settings() == light, "the window to be as it was")

    def test_portal_that_starts_later_is_asked(self):
        self.open_settings()
        self.wait_for_settings_background(LIGHT)
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.wait_for_settings_background(DARK)

    def test_portal_that_never_answers_means_light(self):
        self.portal = Portal(answers=False)
        self.open_settings()
        self.wait_for_settings_background(LIGHT)
        self.open_prompt()

    def test_dark_theme_is_followed_where_the_portal_has_no_preference(self):
        self.portal = Portal(**{"color-scheme": scheme(0)})
        daemon = SettingsDaemon(Net_ThemeName="Mint-Y-Dark-Aqua")
        self.addCleanup(daemon.close)
        self.open_settings()
        self.wait_for_settings_background(DARK)
        daemon.publish(Net_ThemeName="Mint-Y-Aqua")
        self.wait_for_settings_background(LIGHT)
        daemon.publish(Net_ThemeName="BlackMATE-dark")
        self.wait_for_settings_background(DARK)
        self.portal.change("color-scheme", scheme(2))
        self.wait_for_settings_background(LIGHT)

    def test_settings_daemon_that_starts_later_or_dies_is_followed(self):
        self.open_settings()
        self.wait_for_settings_background(LIGHT)
        daemon = SettingsDaemon(Net_ThemeName="Adwaita-dark")
        self.wait_for_settings_background(DARK)
        daemon.close()
        self.wait_for_settings_background(LIGHT)

    def test_font_of_the_settings_daemon_is_followed(self):
        """On GNOME, a program that is started at login runs before the daemon does."""
        # Other tests have one font whatever is asked for.
        (self.desktop.home / ".config" / "fontconfig" / "fonts.conf").unlink()
        self.open_settings()
        toolkits = self.width_of_minutes()
        daemon = SettingsDaemon(Gtk_FontName="DejaVu Sans Mono Bold 11")
        self.addCleanup(daemon.close)
        wait_for(lambda: self.width_of_minutes() != toolkits, "the daemon's font")
        first = self.width_of_minutes()
        daemon.publish(Gtk_FontName="DejaVu Serif, 11")
        wait_for(lambda: self.width_of_minutes() != first, "the width of a text to change")
        daemon.publish(Gtk_FontName="Nowhere to be found 11")
        daemon.publish(Gtk_FontName="DejaVu Sans Mono Bold 11")
        wait_for(lambda: self.width_of_minutes() == first, "the text to be as before")

    @staticmethod
    def width_of_minutes():
        label = accessibility.find("minutes").get_component_iface()
        return label.get_extents(accessibility.Atspi.CoordType.SCREEN).width

    def test_window_scaling_of_xfce_is_adopted(self):
        daemon = SettingsDaemon(Gdk_WindowScalingFactor=2, Xft_DPI=98304)
        self.addCleanup(daemon.close)
        self.desktop.write_preferences(folderPath="")
        for desktop, width in (("XFCE", 880), ("GNOME", 440)):
            with self.subTest(desktop=desktop):
                self.tovla = self.desktop.start_tovla(XDG_CURRENT_DESKTOP=desktop)
                wait_for(lambda: active_window_title() == SETTINGS, "the settings")
                self.assertEqual(geometry_of(SETTINGS)[2], width)
                self.desktop.stop_tovlas()
                wait_for(lambda: SETTINGS not in visible_titles(), "the settings to go")

    def test_accent_colours_the_chosen_radio_button(self):
        self.portal = Portal(**{"color-scheme": scheme(2),
                                "accent-color": dbus.Struct((0.8, 0.2, 0.2), signature="ddd",
                                                            variant_level=1)})
        self.open_settings()

        self.wait_for_color("#CC3333")

    def test_high_contrast_is_followed(self):
        black = "#000000"  # text is 85 % black otherwise
        self.portal = Portal(**{"color-scheme": scheme(2), "contrast": scheme(1)})
        self.open_settings()
        self.wait_for_color(black)
        self.portal.change("contrast", scheme(0))
        self.wait_for_color(black, is_there=False)

    def test_nonsense_is_no_preference(self):
        self.portal = Portal(**{"color-scheme": dbus.String("dark", variant_level=1),
                                "accent-color": dbus.Int32(7, variant_level=1)})
        self.open_settings()
        self.wait_for_settings_background(LIGHT)


if __name__ == "__main__":
    unittest.main()
