# SPDX-License-Identifier: MIT
"""Writing with an input method, and pasting from an unresponsive program."""
import unittest

import accessibility
from case import (SETTINGS, DesktopCase, active_window_title, frame_of, press_keys, type_text,
                  window_of)
from clipboard import SilentClipboard
from desktop import output, search_windows, wait_for
from input_method import ENVIRONMENT, InputMethod


def type_and_see(field, text):
    """Types each character once the previous one is there. When a busy program sends several keys to
    the input method at once, the toolkit now and then takes up the answers in another order."""
    for end in range(1, len(text) + 1):
        type_text(text[end - 1])
        wait_for(lambda: accessibility.text_of(field) == text[:end],
                 f"{text[:end]!r} in the field")


class InputMethodTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.input_method = InputMethod()
        self.addCleanup(self.input_method.vanish)
        self.context = self.input_method.context
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        self.tovla = self.desktop.start_tovla(**ENVIRONMENT)
        self.item = self.tovla.wait_for_tray_item()
        self.editor = self.open_prompt()

    def place(self):
        """The caret's rectangle on the screen, as reported to the input method."""
        return self.context.places[-1] if self.context.places else (0, 0, 0, 0)

    def wait_for_place(self, fits, what):
        wait_for(lambda: fits(*self.place()), f"{what}; it is at {self.place()}")

    def box(self):
        """The inside of the text box on the screen: left, top, right, bottom."""
        x, y, width, height = frame_of(active_window_title())
        return x + 12, y + 28 + 12, x + width - 12, y + height - 12

    def test_caret_is_where_the_card_shows_it(self):
        left, top, right, _ = self.box()
        self.wait_for_place(lambda x, y, width, height: left < x < left + 40 and top < y < top + 40
                            and width == 1 and height > 15, "the caret in the empty card")
        start = self.place()[0]
        type_text("word")
        self.wait_for_place(lambda x, *_: x > start + 30, "the caret behind the word")
        typed = self.place()[0]
        type_text("s")
        self.wait_for_place(lambda x, *_: typed < x < right, "the caret behind the syllable")
        press_keys("Return", "Return")
        self.wait_for_place(lambda x, y, *_: x == start and y > top + 50,
                            "the caret in the third line")
        for _ in range(20):
            press_keys("Return")
        self.wait_for_place(lambda x, y, width, height: y + height <= self.box()[3],
                            "the caret inside the card, which is full")
        _, before, _, _ = self.place()
        press_keys("ctrl+Home")
        self.wait_for_place(lambda x, y, *_: y < before, "the caret in the first line")

    def test_caret_follows_the_card_that_is_moved(self):
        self.wait_for_place(lambda *place: place[2] == 1, "the caret")
        x, y, _, _ = self.place()
        window = window_of(active_window_title())
        output("xdotool", "windowmove", "--relative", str(window), "60", "40")
        self.wait_for_place(lambda new_x, new_y, *_: (new_x, new_y) == (x + 60, y + 40),
                            f"the caret moved from {x, y}")

    def test_escape_that_ends_a_composition_leaves_the_note(self):
        type_text("s")
        wait_for(lambda: self.context.preedit, "the composition")
        press_keys("Escape")
        wait_for(lambda: accessibility.text_of(self.editor) == "한", "the committed syllable")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith("\n한\n".encode()))

    def test_escape_after_it_throws_the_note_away(self):
        type_text("s")
        wait_for(lambda: self.context.preedit, "the composition")
        press_keys("space")
        wait_for(lambda: accessibility.text_of(self.editor) == "한 ", "the committed syllable")
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.assertEqual(self.day_files(), [])

    def test_clipboard_that_does_not_answer_is_asked_once(self):
        clipboard = SilentClipboard()
        self.addCleanup(clipboard.close)
        press_keys("Menu")
        wait_for(lambda: len(search_windows("--onlyvisible", "--class", "^tovla$")) > 1,
                 "the context menu")
        self.assertEqual(clipboard.questions(), 0)
        press_keys("Escape", "ctrl+v")
        wait_for(lambda: clipboard.questions() > 0, "the question")
        type_and_see(self.editor, "on")
        self.assertEqual(clipboard.questions(), 1)

    def test_clipboard_that_does_not_answer_is_asked_once_for_the_number_too(self):
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == SETTINGS, "the settings to be active")
        self.focus_number()
        clipboard = SilentClipboard()
        self.addCleanup(clipboard.close)
        press_keys("ctrl+a", "ctrl+v")
        wait_for(lambda: clipboard.questions() > 0, "the question")
        type_and_see(accessibility.find("Prompt Frequency", accessibility.Atspi.Role.TEXT), "25")
        press_keys("Return")
        wait_for(lambda: "intervalMinutes=25" in self.desktop.preferences_file().read_text(),
                 "the number to be kept")
        self.assertEqual(clipboard.questions(), 1)


if __name__ == "__main__":
    unittest.main()
