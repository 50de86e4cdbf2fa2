# SPDX-License-Identifier: MIT
"""Writing Korean with the engines themselves. The keys are those of the common layout: g k s make 한,
r m f make 글."""
import subprocess
import unittest

import numpy

import accessibility
import rare_keys
from case import (DesktopCase, active_window_title, click, frame_of, press_keys, type_text)
from desktop import Desktop, wait_for
from engines import Fcitx, Ibus

# From the card's edge to its text: the margin, the padding and the line's own.
TEXT_LEFT, TEXT_TOP = 12 + 16 + 5, 28 + 12 + 16
LINE_HEIGHT = 22


def setUpModule():
    EngineTests.desktop = Desktop()


def tearDownModule():
    EngineTests.desktop.close()


class EngineTests:
    """What every engine is to do; the classes below say which."""

    engine_class = None

    @classmethod
    def setUpClass(cls):
        if cls.engine_class.missing():
            raise unittest.SkipTest("not installed: " + " ".join(cls.engine_class.missing()))

    @classmethod
    def tearDownClass(cls):
        pass  # the desktop is the module's

    def setUp(self):
        super().setUp()
        # At Escape some go over to Latin letters, for all programs.
        self.engine = self.engine_class(self.desktop)
        self.addCleanup(self.engine.stop)
        self.addCleanup(self.desktop.stop_tovlas)
        self.desktop.write_preferences(folderPath=self.desktop.journal())
        self.tovla = self.desktop.start_tovla(**self.engine.environment)
        self.item = self.tovla.wait_for_tray_item()
        self.editor = self.open_prompt()
        self.wait_for_engine()

    def wait_for_engine(self):
        """The toolkit makes itself known to the engine only after the card is there; the keys until
        then become Latin letters or are lost."""
        def composes():
            type_text("gks ")
            return self.text().endswith("한 ")

        wait_for(composes, "the engine to compose")
        press_keys("ctrl+a", "BackSpace")
        self.wait_for_text("")

    def text(self):
        """What is committed; a composition is not among it."""
        return accessibility.text_of(self.editor)

    def wait_for_text(self, text):
        wait_for(lambda: self.text() == text, f"{text!r} in the card")

    def text_place(self):
        """Where the first line begins on the screen."""
        x, y, _, _ = frame_of(active_window_title())
        return x + TEXT_LEFT, y + TEXT_TOP

    def composed_width(self):
        """How far the ink in the first line reaches beyond the committed text, in pixels."""
        x, y = self.text_place()
        x += accessibility.width_of(self.editor)
        picture = subprocess.run(["import", "-window", "root", "-crop",
                                  f"100x{LINE_HEIGHT}+{x}+{y}", "+repage", "-depth", "8", "gray:-"],
                                 check=True, stdout=subprocess.PIPE).stdout
        columns = numpy.frombuffer(picture, numpy.uint8).reshape(LINE_HEIGHT, 100)
        inked = numpy.nonzero((columns < 160).any(axis=0))[0]
        return int(inked[-1]) + 1 if inked.size else 0

    def compose(self, keys, committed=""):
        """Types what ends with a syllable that is shown but not committed."""
        type_text(keys)
        # A syllable is wider than a caret.
        wait_for(lambda: self.text() == committed and self.composed_width() > 6,
                 f"a composition behind {committed!r} in the card")

    def save(self, note):
        press_keys("ctrl+Return")
        self.wait_until_no_prompt()
        self.wait_for_day_file(lambda content: content.endswith(f"\n{note}\n".encode()))

    def test_what_is_composed_is_seen_and_saved(self):
        self.compose("gks")
        self.compose("rmf", "한")
        press_keys("space")
        self.wait_for_text("한글 ")
        press_keys("BackSpace")
        self.wait_for_text("한글")
        self.save("한글")

    def test_dead_keys_compose_and_emoji(self):
        self.engine.use_keyboard()
        rare_keys.define()  # ibus has just loaded the whole keyboard anew
        press_keys(rare_keys.DEAD_ACUTE, "e")
        self.wait_for_text("é")
        press_keys(rare_keys.COMPOSE, "a", "e")
        self.wait_for_text("éæ")
        press_keys(rare_keys.SEEDLING)
        self.save("éæ🌱")

    def test_candidates_are_next_to_the_caret(self):
        self.compose("gks")
        # Not F9, which xdotool presses together with Alt on newer keyboard layouts.
        press_keys("Hangul_Hanja")
        left, top = self.text_place()

        def are_next_to_the_caret():
            # Ibus shows them in the corner of the screen for a moment.
            place = self.engine.candidates()
            return (place and left <= place[0] <= left + 60
                    and top + LINE_HEIGHT / 2 <= place[1] <= top + 2 * LINE_HEIGHT)

        wait_for(are_next_to_the_caret, "the candidates next to the caret")
        press_keys("1")
        self.wait_for_text("韓")
        self.save("韓")

    def test_escape_ends_the_composition_before_it_throws_the_note_away(self):
        self.compose("gks")
        press_keys("Escape")
        self.wait_for_text("한")
        self.assertEqual(len(self.prompt_titles()), 1)
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.assertEqual(self.day_files(), [])

    def test_return_keeps_what_is_composed(self):
        self.compose("gksrmf", "한")
        press_keys("Return")
        self.wait_for_text("한글\n")
        type_text("gks")
        press_keys("space")
        self.wait_for_text("한글\n한 ")
        self.save("한글\n한")

    def test_saving_keeps_what_is_composed(self):
        self.compose("gksrmf", "한")
        self.save("한글")

    def test_card_that_loses_the_focus_keeps_what_is_composed(self):
        self.compose("gksrmf", "한")
        card = active_window_title()
        other = self.desktop.start("xterm", "-title", "other", "-geometry", "20x5+0+0")
        self.addCleanup(other.wait)
        self.addCleanup(other.terminate)
        wait_for(lambda: active_window_title() == "other", "the other window to be active")
        self.wait_for_text("한글")
        x, y, _, _ = frame_of(card)
        click(x + TEXT_LEFT + 200, y + TEXT_TOP + 10)
        wait_for(lambda: active_window_title() == card, "the card to be active")
        self.compose("gks", "한글")
        self.save("한글한")

    def click_while_composing(self, offset):
        """Clicks that far from where the line begins, and goes on writing there."""
        self.compose("gksrmf gksrmf", "한글 한")
        x, y = self.text_place()
        click(x + offset, y + 10)
        self.wait_for_text("한글 한글")
        type_text("gks")
        press_keys("space")

    def test_click_leaves_what_is_composed_where_it_is(self):
        self.click_while_composing(1)
        self.wait_for_text("한 한글 한글")
        self.save("한 한글 한글")

    def test_click_beside_the_text_leaves_what_is_composed_where_it_is(self):
        self.click_while_composing(-10)
        self.wait_for_text("한 한글 한글")
        self.save("한 한글 한글")

    def test_click_behind_the_text_commits_what_is_composed_once(self):
        self.click_while_composing(200)
        self.wait_for_text("한글 한글한 ")
        self.save("한글 한글한")

    def test_escape_after_a_click_throws_the_note_away(self):
        self.compose("gks")
        x, y = self.text_place()
        click(x + 1, y + 10)
        self.wait_for_text("한")
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.assertEqual(self.day_files(), [])


class IbusTest(EngineTests, DesktopCase):
    engine_class = Ibus


class FcitxTest(EngineTests, DesktopCase):
    engine_class = Fcitx


if __name__ == "__main__":
    unittest.main()
