# SPDX-License-Identifier: MIT
"""Shared code of the tests that drive the real program."""
import os
import re
import subprocess
import unittest
from pathlib import Path

from desktop import Desktop, output, search_windows, visible_windows, wait_for

QUESTION = "What would you like to note about this moment?"
SETTINGS = "Tovla Settings"
# The background of the settings in the two appearances.
LIGHT, DARK = "#ECECEC", "#323232"


class DesktopCase(unittest.TestCase):
    """One desktop for all tests in a file: a process can look up the accessibility tree only once."""

    desktop_options = {}

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(**cls.desktop_options)

    @classmethod
    def tearDownClass(cls):
        cls.desktop.close()

    def setUp(self):
        self.desktop.forget_user()
        self.tovla = None

    def tearDown(self):
        self.desktop.stop_tovlas()

    def start(self, folder=True, **preferences):
        if folder:
            preferences.setdefault("folderPath", self.desktop.journal())
        if preferences:
            self.desktop.write_preferences(**preferences)
        self.tovla = self.desktop.start_tovla()
        self.item = self.tovla.wait_for_tray_item()
        return self.tovla

    def open_menu(self, x=0, y=0):
        """Opens the menu drawn by Tovla. Popups are not in the accessibility tree."""
        before = len(visible_titles())
        self.item.left_click(x, y)
        wait_for(lambda: len(visible_titles()) > before, "the menu")

    def open_prompt(self):
        """Opens a prompt from the tray and waits until it has keyboard focus."""
        import accessibility
        self.item.click("Write now")
        editor = accessibility.find(QUESTION)
        wait_for(lambda: accessibility.is_focused(editor), "the caret in the prompt")
        wait_for(lambda: is_time(active_window_title()), "the prompt to be active")
        window_of(active_window_title())
        return editor

    def open_settings(self, **preferences):
        self.start(**preferences)
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to be active")
        window_of(SETTINGS)

    def focus_number(self):
        import accessibility
        field = accessibility.find("Prompt Frequency", accessibility.Atspi.Role.TEXT)
        field.get_component_iface().grab_focus()
        wait_for(lambda: accessibility.is_focused(field), "the focus in the number field")

    def choose_folder(self):
        """Chooses the journal folder in the settings that the first launch opened."""
        import accessibility
        self.desktop.journal().mkdir()
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to be active")
        accessibility.press("Choose…")
        accessibility.find("Choose")
        wait_for(lambda: active_window_title() != SETTINGS, "the chooser to be active")
        type_text(str(self.desktop.journal()))
        accessibility.press("Choose")
        wait_for(lambda: self.desktop.preferences_file().exists()
                 and f"folderPath={self.desktop.journal()}"
                 in self.desktop.preferences_file().read_text(), "the folder in the preferences")

    def wait_for_settings_background(self, color):
        """Checks a point next to the rows. @p color is, for example, "#ECECEC"."""
        def background():
            x, y, _, _ = geometry_of(SETTINGS)
            return color_at(x + 12, y + 60)

        wait_for(lambda: background() == color, f"the settings to be {color}")

    def prompt_titles(self):
        return [title for title in visible_titles() if is_time(title)]

    def wait_for_prompt(self):
        """Waits for a prompt that has the keyboard; keys that come earlier go to another window.
        Returns its title."""
        def title():
            focused = output("xdotool", "getwindowfocus", "getwindowname")
            return focused if is_time(focused) else None

        return wait_for(title, "the prompt to have the keyboard")

    def wait_until_no_prompt(self):
        wait_for(lambda: not self.prompt_titles(), "the prompt to close")

    def day_files(self):
        return sorted(self.desktop.journal().glob("*")) if self.desktop.journal().exists() else []

    def wait_for_day_file(self, condition):
        return wait_for(lambda: any(condition(path.read_bytes()) for path in self.day_files()),
                        "the day file to be written")


def is_sanitized():
    """Whether the program was built with the address sanitizer, which makes it slow and large."""
    return b"__asan_init" in Path(os.environ["TOVLA"]).read_bytes()


def is_time(title):
    return re.fullmatch(r"\d\d:\d\d", title) is not None


def visible_titles():
    return [output("xdotool", "getwindowname", str(window))
            for window in search_windows("--onlyvisible", "--class", "^tovla$")]


def active_window_title():
    return output("xdotool", "getactivewindow", "getwindowname")


def press_keys(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "5", "--", text], check=True)


def point_to(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)


def click(x, y, button=1):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)], check=True)


def color_at(x, y):
    """The colour at this point of the screen, for example "#ECECEC"."""
    picture = output("import", "-window", "root", "-crop", f"1x1+{x}+{y}", "txt:-")
    return re.search(r"#[0-9A-F]{6}", picture)[0]


def window_of(title):
    """The visible window with that title. While the window manager frames it, searches miss it, even if
    it is the active one already."""
    return wait_for(lambda: visible_windows(title), f"the window {title!r}")[0]


def geometry_of(title):
    """x, y, width and height on the screen of the visible window with that title."""
    return geometry(window_of(title))


def geometry(window):
    """x, y, width and height on the screen."""
    described = output("xwininfo", "-id", str(window))
    return tuple(int(re.search(rf"{name}: +(-?\d+)", described)[1])
                 for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))


def shadow_of(title):
    """The shadow's width left, right, above and below, as announced by the window."""
    extents = output("xprop", "-name", title, "_GTK_FRAME_EXTENTS").split("=")[1]
    return tuple(int(part) for part in extents.split(","))


def frame_of(title):
    """The card as the user sees it: the window without its shadow, in screen pixels."""
    x, y, width, height = geometry_of(title)
    left, right, above, below = shadow_of(title)
    return x + left, y + above, width - left - right, height - above - below
