# SPDX-License-Identifier: MIT
"""A prompt, from the tray to the day file."""
import re
import signal
import subprocess
import unittest
from pathlib import Path

import accessibility
from case import (QUESTION, DesktopCase, active_window_title, click, geometry_of, press_keys,
                  shadow_of, type_text, visible_titles, window_of)
from desktop import output, wait_for
from growth import colours_of_growth

NO_SHADOW = (0, 0, 0, 0)


class PromptTest(DesktopCase):
    def test_first_launch_asks_for_a_folder_and_the_first_note_is_saved(self):
        self.start(folder=False)
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
        self.assertFalse(self.desktop.preferences_file().exists())

        self.choose_folder()
        accessibility.find(str(self.desktop.journal()))
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        self.assertEqual(self.item.labels()[0], "Every 60 min → Journal")

        self.open_prompt()
        type_text("Finished the report.")
        press_keys("ctrl+Return")
        self.wait_until_no_prompt()
        (path,) = self.day_files()
        self.assertRegex(path.name, r"^\d{4}-\d\d-\d\d\.md$")
        self.assertRegex(path.read_bytes().decode(),
                         rf"^# {path.stem}\n\n## \d\d:\d\d\nFinished the report\.\n$")

    def test_second_note_follows_after_one_blank_line(self):
        self.start()
        for note in ("one", "two"):
            self.open_prompt()
            type_text(note)
            press_keys("Return")
            type_text("    more")
            press_keys("Return", "Return", "ctrl+Return")
            self.wait_until_no_prompt()
        (path,) = self.day_files()
        self.assertTrue(re.fullmatch(
            rf"# {path.stem}\n\n## \d\d:\d\d\none\n    more\n\n## \d\d:\d\d\ntwo\n    more\n",
            path.read_text()), path.read_bytes())

    def test_prompt_takes_the_keyboard_from_who_is_typing(self):
        self.start()
        typed = self.desktop.home / "typed"
        other = self.desktop.start("xterm", "-T", "other", "-e", f"cat > {typed}")
        wait_for(lambda: active_window_title() == "other", "the other program")
        type_text("for the other\n")
        wait_for(lambda: typed.exists() and typed.read_text() == "for the other\n",
                 "what was typed to arrive")
        self.open_prompt()
        type_text("for the note")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nfor the note\n"))
        self.assertEqual(typed.read_text(), "for the other\n")
        other.terminate()

    def test_escape_throws_the_note_away(self):
        self.start()
        self.open_prompt()
        type_text("lost")
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.assertEqual(self.day_files(), [])
        editor = self.open_prompt()
        self.assertEqual(accessibility.text_of(editor), "")

    def test_close_button_throws_the_note_away(self):
        self.start()
        self.open_prompt()
        type_text("lost")
        (title,) = self.prompt_titles()
        self.desktop.wait_until_still()
        x, y, _, _ = geometry_of(title)
        left, _, above, _ = shadow_of(title)
        click(x + left + 18, y + above + 14)
        self.wait_until_no_prompt()
        editor = self.open_prompt()
        self.assertEqual(accessibility.text_of(editor), "")
        accessibility.press("Close")
        self.wait_until_no_prompt()
        self.assertEqual(self.day_files(), [])

    def test_blank_note_keeps_the_prompt(self):
        self.start()
        editor = self.open_prompt()
        type_text("  ")
        press_keys("ctrl+Return")
        type_text("x")
        wait_for(lambda: accessibility.text_of(editor) == "  x", "what was typed")
        self.assertEqual(len(self.prompt_titles()), 1)
        self.assertEqual(self.day_files(), [])

    def test_without_a_folder_an_alert_comes_above_the_prompt(self):
        self.start(folder=False)
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
        self.open_prompt()
        type_text("nowhere to go")
        press_keys("ctrl+Return")
        accessibility.find("Pick a folder in Settings before saving entries.")
        wait_for(lambda: active_window_title() == "Journal", "the alert to be active")
        self.assertEqual(len(self.prompt_titles()), 1)
        press_keys("Return")
        self.wait_until_no_prompt()
        self.assertNotIn("Journal", visible_titles())

    def test_failed_save_says_why_and_escape_dismisses(self):
        self.start()
        self.desktop.journal().write_text("a file where the folder should be")
        self.open_prompt()
        type_text("x")
        press_keys("ctrl+Return")
        accessibility.find("Could not save entry: Not a directory")
        wait_for(lambda: active_window_title() == "Journal", "the alert to be active")
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.desktop.journal().unlink()

    def test_second_write_now_changes_nothing(self):
        self.start()
        editor = self.open_prompt()
        type_text("still here")
        wait_for(lambda: accessibility.text_of(editor) == "still here", "what was typed")
        self.item.click("Write now")
        self.item.labels()  # answered only after the click has been handled
        self.assertEqual(len(self.prompt_titles()), 1)
        self.assertEqual(accessibility.text_of(editor), "still here")

    def test_quit_ends_the_program_even_with_a_prompt_open(self):
        self.start()
        self.open_prompt()
        self.item.click("Quit")
        self.assertEqual(self.tovla.wait_for_end(), 0)
        self.assertEqual(self.tovla.complaints(), "")

    def test_window_is_a_floating_card(self):
        self.start()
        self.open_prompt()
        (title,) = self.prompt_titles()
        state = output("xprop", "-name", title, "_NET_WM_STATE")
        for atom in ("_ABOVE", "_SKIP_TASKBAR", "_SKIP_PAGER"):
            self.assertIn("_NET_WM_STATE" + atom, state)
        left, right, above, below = shadow_of(title)
        place = ((1280 - 560) // 2 - left, (900 - 104) // 3 - above)
        wait_for(lambda: geometry_of(title)[:2] == place, f"the card at {place}")
        _, _, width, height = geometry_of(title)
        self.assertEqual(width - left - right, 560)
        self.assertIn(height - above - below, range(104, 373))

    def test_compositor_that_blurs_is_given_the_round_frame(self):
        """KWin sets this property on the root window while it can blur."""
        blur = "_KDE_NET_WM_BLUR_BEHIND_REGION"
        subprocess.run(["xprop", "-root", "-f", blur, "32c", "-set", blur, "0"], check=True)
        self.addCleanup(subprocess.run, ["xprop", "-root", "-remove", blur], check=True)
        self.start()
        self.open_prompt()
        (title,) = self.prompt_titles()
        numbers = [int(number) for number in
                   output("xprop", "-name", title, blur).split("=")[1].split(",")]
        strips = [numbers[start:start + 4] for start in range(0, len(numbers), 4)]
        left, right, above, below = shadow_of(title)
        _, _, width, height = geometry_of(title)
        self.assertEqual(min(x for x, _, _, _ in strips), left)
        self.assertEqual(max(x + wide for x, _, wide, _ in strips), width - right)
        self.assertEqual(min(y for _, y, _, _ in strips), above)
        self.assertEqual(max(y + high for _, y, _, high in strips), height - below)
        # The corners are left out.
        self.assertGreater(min(strips, key=lambda strip: strip[1])[0], left)

    def test_compositor_that_ends_and_starts_is_noticed(self):
        if not self.desktop.compositor:
            self.skipTest("the window manager is the compositor")
        self.start()
        self.open_prompt()
        (title,) = self.prompt_titles()
        frame = ((1280 - 560) // 2, (900 - 104) // 3)
        self.assertNotEqual(shadow_of(title), NO_SHADOW)
        self.desktop.compositor.terminate()
        wait_for(lambda: shadow_of(title) == NO_SHADOW, "the shadow to go")
        wait_for(lambda: geometry_of(title)[:2] == frame, "the frame to stay")
        self.desktop.start_compositor()
        wait_for(lambda: shadow_of(title) != NO_SHADOW, "the shadow to come back")
        left, _, above, _ = shadow_of(title)
        wait_for(lambda: geometry_of(title)[:2] == (frame[0] - left, frame[1] - above),
                 "the frame to stay")

    def test_the_card_shows_nothing_where_it_has_grown_and_is_not_painted_yet(self):
        self.start()
        self.open_prompt()
        card = window_of(active_window_title())
        process = self.tovla.process
        process.send_signal(signal.SIGSTOP)
        try:
            wait_for(lambda: " T " in Path(f"/proc/{process.pid}/stat").read_text(), "the stop")
            self.assertEqual(colours_of_growth(card, 50), {b"\0\0\0\0"})
        finally:
            process.send_signal(signal.SIGCONT)

    def test_growing_keeps_the_top_edge(self):
        self.start()
        self.open_prompt()
        (title,) = self.prompt_titles()
        self.desktop.wait_until_still()
        x, y, _, before = geometry_of(title)
        press_keys(*["Return"] * 30)
        wait_for(lambda: geometry_of(title)[3] - before > 200, "the card to grow")
        self.assertEqual(geometry_of(title)[:2], (x, y))


if __name__ == "__main__":
    unittest.main()
