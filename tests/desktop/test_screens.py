# SPDX-License-Identifier: MIT
"""Screens of different scales, plugged in and unplugged, and a small screen."""
import itertools
import os
import subprocess
import unittest

import accessibility
from case import (LIGHT, SETTINGS, DesktopCase, active_window_title, color_at, frame_of,
                  geometry_of, is_time, point_to, press_keys, shadow_of, type_text)
from desktop import output, wait_for
from xsettings import STANDARD_DPI, SettingsDaemon

SIDE, HEIGHT = 1280, 900  # of each screen
STRIP_HEIGHT = 28


def plug(name, width, height, x, output_name="none"):
    """Adds a screen at the top of the display. The size in millimetres does not matter."""
    change_screens("--delmonitor", name)
    change_screens("--setmonitor", name, f"{width}/300x{height}/200+{x}+0", output_name)
    assert f" {width}/300x{height}/200+{x}+0" in output("xrandr", "--listmonitors")


def unplug(name):
    change_screens("--delmonitor", name)
    assert f" {name} " not in output("xrandr", "--listmonitors")


def change_screens(*arguments):
    """Ignores the exit status of xrandr, which is 1 even on success."""
    subprocess.run(["xrandr", *arguments], stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def wait_for_window(measure, fits):
    """Returns what measure() says once it fits. A window that is opened anew is gone for a moment."""
    def measured():
        try:
            box = measure()
        except (AssertionError, IndexError, TypeError, ValueError,
                subprocess.CalledProcessError):
            return None
        return box if fits(box) else None

    return wait_for(measured, "the window to have its size")


class ScreensTest(DesktopCase):
    desktop_options = {"size": f"{2 * SIDE}x{HEIGHT}"}

    def setUp(self):
        super().setUp()
        plug("left", SIDE, HEIGHT, 0, "screen")
        plug("right", SIDE, HEIGHT, SIDE)

    def start_scaled(self, left, right):
        os.environ["QT_SCREEN_SCALE_FACTORS"] = f"left={left};right={right}"
        try:
            self.start()
        finally:
            del os.environ["QT_SCREEN_SCALE_FACTORS"]

    def open_prompt_at(self, x, y):
        point_to(x, y)
        editor = self.open_prompt()
        (self.title,) = self.prompt_titles()
        return editor

    def wait_for_frame(self, *expected):
        """Allows for a pixel of rounding from the scale."""
        def is_there():
            return all(abs(got - wanted) <= 1
                       for got, wanted in zip(frame_of(self.title), expected))

        self.wait_for_card(is_there, f"the frame to be at {expected}")

    def wait_for_card(self, condition, what):
        try:
            wait_for(condition, what)
        except AssertionError as error:
            raise AssertionError(f"{error}; its frame is {frame_of(self.title)}") from None

    def wait_for_place_on(self, screen_x, scale):
        """Waits until the card is centred, with a third of the free height above it."""
        self.wait_for_size(scale)
        self.wait_for_frame(screen_x + (SIDE - 560 * scale) / 2,
                            int((HEIGHT / scale - 104) / 3) * scale)

    def wait_for_size(self, scale):
        """Waits until the card has the size for one line."""
        def is_there():
            _, _, width, height = frame_of(self.title)
            return width == 560 * scale and 104 * scale <= height <= 112 * scale

        self.wait_for_card(is_there, f"the card at scale {scale}")

    def test_prompt_opens_on_the_screen_with_the_pointer(self):
        self.start_scaled(1, 1.5)
        for screen_x, scale in ((0, 1), (SIDE, 1.5)):
            self.open_prompt_at(screen_x + 10, HEIGHT - 10)
            self.wait_for_place_on(screen_x, scale)
            self.assertEqual(shadow_of(self.title)[0], 54 * scale)
            press_keys("Escape")
            self.wait_until_no_prompt()

    def test_settings_open_on_the_screen_with_the_pointer(self):
        self.start_scaled(1, 1.25)
        point_to(SIDE + 10, 10)
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to be active")
        x, y, width, height = geometry_of("Tovla Settings")
        self.assertGreaterEqual(x, SIDE)
        self.assertLessEqual(x + width, 2 * SIDE)
        self.assertGreaterEqual(y, 0)
        self.assertLessEqual(y + height, HEIGHT)

    def test_card_moved_to_a_screen_of_another_scale_takes_that_scale(self):
        self.start_scaled(1, 2)
        editor = self.open_prompt_at(SIDE + 10, 10)
        type_text("moved")
        self.wait_for_place_on(SIDE, 2)
        for x, scale in ((100, 1), (SIDE + 100, 2)):
            output("xdotool", "windowmove", output("xdotool", "getactivewindow"), str(x), "100")
            self.wait_for_size(scale)
            self.assertEqual(shadow_of(self.title)[0], 54 * scale)
        self.assertEqual(accessibility.text_of(editor), "moved")

    def test_card_comes_back_from_a_screen_that_is_unplugged(self):
        for scale in (1, 2):
            self.start_scaled(1, scale)
            editor = self.open_prompt_at(SIDE + 10, 10)
            type_text("unplug")
            self.wait_for_place_on(SIDE, scale)
            unplug("right")
            self.wait_for_size(1)
            wait_for(self.strip_is_on_the_left_screen, "the card to be seen")
            type_text("ged")
            wait_for(lambda: accessibility.text_of(editor) == "unplugged", "what was typed")
            press_keys("ctrl+Return")
            self.wait_for_day_file(lambda content: content.endswith(b"\nunplugged\n"))
            self.wait_until_no_prompt()
            self.tearDown()
            self.setUp()

    def strip_is_on_the_left_screen(self):
        x, y, width, _ = frame_of(self.title)
        return 0 <= x <= SIDE - width and 0 <= y <= HEIGHT - STRIP_HEIGHT

    def test_card_on_another_screen_stays_there(self):
        self.start_scaled(1, 1)
        editor = self.open_prompt_at(10, 10)
        self.wait_for_place_on(0, 1)
        output("xdotool", "windowmove", output("xdotool", "getactivewindow"), "20", "300")
        wait_for(lambda: geometry_of(self.title)[:2] == (20, 300), "the card to be moved")
        unplug("right")
        type_text("x")
        wait_for(lambda: accessibility.text_of(editor) == "x", "what was typed")
        self.assertEqual(geometry_of(self.title)[:2], (20, 300))

    def test_open_settings_follow_a_change_of_scale(self):
        daemon = SettingsDaemon(Xft_DPI=STANDARD_DPI)
        self.addCleanup(daemon.close)
        self.open_settings(theme="light")
        _, _, width, height = geometry_of(SETTINGS)
        daemon.publish(Xft_DPI=2 * STANDARD_DPI)
        # The screen is too low for twice the height.
        x, y, _, _ = wait_for_window(lambda: geometry_of(SETTINGS), lambda box: box[2] == 2 * width)
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to be active")
        wait_for(lambda: color_at(x + 2 * width - 60, y + 60) == LIGHT, "all of it to be drawn")
        daemon.publish(Xft_DPI=STANDARD_DPI)
        wait_for_window(lambda: geometry_of(SETTINGS), lambda box: box[2:] == (width, height))

    def test_open_card_follows_a_change_of_scale(self):
        daemon = SettingsDaemon(Xft_DPI=STANDARD_DPI)
        self.addCleanup(daemon.close)
        self.start()
        self.open_prompt()
        type_text("a note")
        before = frame_of(active_window_title())
        daemon.publish(Xft_DPI=2 * STANDARD_DPI)
        wait_for_window(lambda: frame_of(self.prompt_titles()[0]),
                        lambda box: box[2:] == tuple(2 * side for side in before[2:]))
        wait_for(lambda: is_time(active_window_title()), "the card to be active")
        type_text(" goes on")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda text: b"a note goes on" in text)

    def test_card_is_a_new_window_after_a_change_of_scale(self):
        """GNOME's window manager marks a window whose picture it withholds, and leaves the mark when
        the window is hidden in the meantime: that window is never seen again."""
        daemon = SettingsDaemon(Xft_DPI=STANDARD_DPI)
        self.addCleanup(daemon.close)
        self.start()
        self.open_prompt()
        before = output("xdotool", "getactivewindow")
        daemon.publish(Xft_DPI=2 * STANDARD_DPI)
        wait_for(lambda: is_time(active_window_title())
                 and output("xdotool", "getactivewindow") != before, "a new window")
        (self.title,) = self.prompt_titles()
        self.assertEqual(shadow_of(self.title)[0], 54 * 2)
        press_keys("Escape")
        self.wait_until_no_prompt()
        editor = self.open_prompt()
        type_text("again")
        wait_for(lambda: accessibility.text_of(editor) == "again", "what was typed")

    def test_card_outgrows_a_small_screen_and_is_dragged_by_its_strip(self):
        unplug("right")
        plug("left", 500, 300, 0, "screen")
        self.start_scaled(1, 1)
        self.open_prompt_at(10, 10)
        self.wait_for_frame(0, (300 - 104) // 3)
        press_keys(*["Return"] * 30)
        wait_for(lambda: frame_of(self.title)[3] == 372, "the card to grow to its cap")
        self.desktop.wait_until_still()
        x, y, width, _ = frame_of(self.title)
        self.assertEqual((x, width), (0, 560))
        self.assertGreaterEqual(y, 0)
        point_to(x + 200, y + STRIP_HEIGHT // 2)
        output("xdotool", "mousedown", "1")
        travels = itertools.cycle((40, 60, 80))

        def follows():
            """The window manager grabs the pointer a little later, and follows it only then."""
            travel = next(travels)
            point_to(x + 200 - travel, y + STRIP_HEIGHT // 2 - travel)
            return frame_of(self.title)[0] < x and frame_of(self.title)[1] < y

        try:
            wait_for(follows, "the card to follow the pointer")
        finally:
            output("xdotool", "mouseup", "1")


if __name__ == "__main__":
    unittest.main()
