# SPDX-License-Identifier: MIT
"""What the desktop's settings portal tells, followed by the windows."""
import re
import unittest

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop

from case import DesktopCase, active_window_title, geometry_of
from desktop import output, wait_for

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
SPACE = "org.freedesktop.appearance"
LIGHT, DARK = "#ECECEC", "#323232"


class Portal(dbus.service.Object):
    """A settings portal that can change its mind, or keep its answers to itself."""

    def __init__(self, answers=True, **values):
        self.bus = dbus.SessionBus(mainloop=DBusGMainLoop())
        self.values = values
        self.answers = answers
        self.name = dbus.service.BusName(SERVICE, self.bus, do_not_queue=True)
        super().__init__(self.bus, PATH)

    def vanish(self):
        self.remove_from_connection()
        self.bus.release_name(SERVICE)
        del self.name

    @dbus.service.method(INTERFACE, in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "fail"))
    def Read(self, space, key, answer, fail):
        if not self.answers:
            return
        if space == SPACE and key in self.values:
            answer(self.values[key])
        else:
            fail(dbus.DBusException("no such setting"))

    @dbus.service.signal(INTERFACE, signature="ssv")
    def SettingChanged(self, space, key, value):
        pass

    def change(self, key, value):
        self.values[key] = value
        self.SettingChanged(SPACE, key, value)


def scheme(number):
    """As portals of today answer: a variant inside the variant."""
    return dbus.UInt32(number, variant_level=1)


class AppearanceTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.portal = None

    def tearDown(self):
        super().tearDown()
        if self.portal:
            self.portal.vanish()

    def open_settings(self, **preferences):
        self.start(**preferences)
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")

    def wait_for_background(self, color):
        def background():
            x, y, _, _ = geometry_of("Tovla Settings")
            picture = output("import", "-window", "root", "-crop", f"1x1+{x + 12}+{y + 60}",
                             "txt:-")
            return re.search(r"#[0-9A-F]{6}", picture)[0]

        wait_for(lambda: background() == color, f"the window to be {color}")

    def test_dark_desktop_is_followed_and_its_changes_too(self):
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.open_settings()
        self.wait_for_background(DARK)
        self.portal.change("color-scheme", scheme(2))
        self.wait_for_background(LIGHT)
        self.portal.change("color-scheme", scheme(1))
        self.wait_for_background(DARK)

    def test_forced_appearance_does_not_follow(self):
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.open_settings(theme="light")
        self.wait_for_background(LIGHT)

    def test_portal_that_starts_later_is_asked(self):
        self.open_settings()
        self.wait_for_background(LIGHT)
        self.portal = Portal(**{"color-scheme": scheme(1)})
        self.wait_for_background(DARK)

    def test_portal_that_never_answers_means_light(self):
        self.portal = Portal(answers=False)
        self.open_settings()
        self.wait_for_background(LIGHT)
        self.open_prompt()

    def test_accent_colours_the_chosen_radio_button(self):
        self.portal = Portal(**{"color-scheme": scheme(2),
                                "accent-color": dbus.Struct((0.8, 0.2, 0.2), signature="ddd",
                                                            variant_level=1)})
        self.open_settings()

        def has_accent():
            picture = self.desktop.home / "accent.png"
            self.desktop.screenshot(picture)
            return "#CC3333" in output("convert", str(picture), "-depth", "8", "-unique-colors",
                                       "txt:-")

        wait_for(has_accent, "the accent")

    def test_nonsense_is_no_preference(self):
        self.portal = Portal(**{"color-scheme": dbus.String("dark", variant_level=1),
                                "accent-color": dbus.Int32(7, variant_level=1)})
        self.open_settings()
        self.wait_for_background(LIGHT)


if __name__ == "__main__":
    unittest.main()
