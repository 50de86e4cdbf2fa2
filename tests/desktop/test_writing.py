# SPDX-License-Identifier: MIT
"""Writing without an input method, and with the mouse."""
import itertools
import sys
import unittest

import accessibility
import drag_source
import rare_keys
from case import (DesktopCase, active_window_title, click, frame_of, geometry, point_to, press_keys,
                  type_text)
from desktop import output, visible_windows, wait_for

# From the card's left edge, and from its lower edge, in pixels.
FIRST_WORD, SECOND_WORD, TEXT_MIDDLE = 42, 68, 39


class WritingTest(DesktopCase):
    def setUp(self):
        super().setUp()
        rare_keys.define()
        self.start()
        self.editor = self.open_prompt()

    def wait_for_text(self, text):
        wait_for(lambda: accessibility.text_of(self.editor) == text, f"the text {text!r}")

    def test_dead_keys_and_compose(self):
        press_keys(rare_keys.DEAD_ACUTE, "e")
        self.wait_for_text("é")
        press_keys(rare_keys.COMPOSE, "a", "e")
        self.wait_for_text("éæ")

    def test_emoji_is_saved_as_it_is(self):
        press_keys(rare_keys.SEEDLING)
        self.wait_for_text("🌱")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith("\n🌱\n".encode()))

    def test_middle_click_pastes_the_selection(self):
        type_text("word ")
        self.wait_for_text("word ")
        x, y, width, height = frame_of(active_window_title())
        for _ in range(2):
            click(x + FIRST_WORD, y + height - TEXT_MIDDLE)
        click(x + width - FIRST_WORD, y + height - TEXT_MIDDLE, button=2)
        self.wait_for_text("word word")

    def test_dropped_text_goes_where_it_is_dropped(self):
        type_text("one three")
        self.wait_for_text("one three")
        (title,) = self.prompt_titles()
        x, y, _, height = frame_of(title)
        self.drag("two ", x + SECOND_WORD, y + height - TEXT_MIDDLE)
        self.wait_for_text("one two three")

    def drag(self, text, x, y):
        """Drags a text from another program to that point of the screen."""
        self.desktop.start(sys.executable, drag_source.__file__, text)
        source = wait_for(lambda: visible_windows(drag_source.READY), "something to drag")[0]
        source_x, source_y, width, height = geometry(source)
        point_to(source_x + width // 2, source_y + height // 2)
        output("xdotool", "mousedown", "1")
        travels = itertools.cycle((0, 1))

        def is_accepted():
            point_to(x + next(travels), y)
            return visible_windows(drag_source.ACCEPTED)

        try:
            wait_for(is_accepted, "the card to accept what is dragged")
        finally:
            output("xdotool", "mouseup", "1")


if __name__ == "__main__":
    unittest.main()
