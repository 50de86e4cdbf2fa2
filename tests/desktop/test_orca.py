# SPDX-License-Identifier: MIT
"""What a real screen reader says, and that it says everything once."""
import unittest

import accessibility
from accessibility import Atspi, find, is_focused
from case import QUESTION, SETTINGS, DesktopCase, press_keys, type_text
from desktop import wait_for
from orca import Orca, start_speech_server
from updates import (BROKEN, DOWNLOAD, NEWER, OFFER, VERSION, UpdateService, start_system_bus)

HINT = "Control Return to save, Escape to cancel"
AVAILABLE = (f"A new version of Tovla is available! Tovla {NEWER} is now available—you have {VERSION}. "
             "Would you like to install it now?")


class OrcaTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        start_system_bus(cls.desktop)
        start_speech_server(cls.desktop)

    def setUp(self):
        super().setUp()
        self.orca = Orca(self.desktop)
        self.addCleanup(self.orca.close)
        self.orca.forget()

    def tearDown(self):
        super().tearDown()
        # Screen readers ask for things that are gone, and nobody should find that in a log. The
        # toolkit's own complaint when Orca takes more than a second for a key is left aside.
        complaints = [line for line in self.tovla.complaints().splitlines()
                      if not line.startswith("QSpiApplication::")]
        self.assertEqual(complaints, [])

    def hear(self, *texts):
        """Waits until Orca has said all of these texts, in any order and between any others, and
        checks that it has said each of them once. Then it forgets what was said."""
        def counts():
            return {text: self.orca.count(text) for text in texts}

        try:
            wait_for(lambda: all(counts().values()), "the texts")
        except AssertionError:
            self.fail(f"{[text for text, count in counts().items() if not count]} not in "
                      f"{self.orca.said()}")
        self.orca.wait_until_silent()
        self.assertEqual(counts(), dict.fromkeys(texts, 1), self.orca.said())
        self.orca.forget()

    def press(self, *keys, hears):
        press_keys(*keys)
        self.hear(*hears)

    def open_settings(self, **preferences):
        super().open_settings(**preferences)
        wait_for(lambda: is_focused(find("Choose…")), "the focus in the settings")

    def test_settings_are_heard_on_a_walk(self):
        self.open_settings(theme="dark", soundName="Glass")
        self.hear(SETTINGS, "Folder", "Choose…", f"Journal, {self.desktop.journal()}")
        self.press("Tab", hears=["How often you'll be nudged to write", "minutes"])
        self.press("Tab", hears=["Prompt Frequency", "60", "next at"])
        theme = [] if self.orca.is_terse else ["Theme"]
        self.press("Tab", hears=["Choose how Tovla looks", *theme, "Dark", "selected"])
        self.press("Up", hears=["Light"])
        row = [] if self.orca.is_terse else ["Played when a writing prompt appears"]
        self.press("Tab", hears=[*row, "Sound combo box", "Glass"])
        self.press("Down", hears=["Hero"])
        self.press("Down", hears=["Morse"])
        self.press("Up", hears=["Hero"])
        self.press("Tab", hears=["Preview"])

    def test_time_of_the_next_prompt_is_heard(self):
        self.open_settings()
        self.hear("Choose…")
        stepper = find("Prompt Frequency", Atspi.Role.SPIN_BUTTON)
        stepper.get_component_iface().grab_focus()
        wait_for(lambda: self.orca.count("next at"), "the time")
        self.assertRegex("\n".join(self.orca.said()), r"next at \d\d:\d\d")

    def test_number_is_heard_at_each_step(self):
        self.open_settings()
        self.hear("Choose…")
        stepper = find("Prompt Frequency", Atspi.Role.SPIN_BUTTON)
        stepper.get_component_iface().grab_focus()
        panel = [] if self.orca.is_terse else ["Prompt Frequency panel"]
        self.hear(*panel, "60", "next at")
        self.press("Up", hears=["65"])
        self.press("Down", hears=["60"])
        accessibility.press("Increase")
        self.hear("65")
        stepper.get_value_iface().set_current_value(1439)
        self.hear("1439")
        self.press("Up", hears=["1440"])
        find("Preview").get_component_iface().grab_focus()
        self.hear("Preview")
        accessibility.press("Decrease")
        self.hear("1435")

    def test_open_list_of_sounds_is_heard(self):
        self.open_settings()
        self.hear("Choose…")
        find("Sound", Atspi.Role.COMBO_BOX).get_component_iface().grab_focus()
        self.hear("Sound combo box", "Purr")
        count = [] if self.orca.is_terse else ["14 items"]
        self.press("space", hears=[*count, "Purr"])
        self.press("Down", hears=["Sosumi"])
        self.press("Escape", hears=["Purr"])

    def test_prompt_is_heard_with_its_hint_at_each_opening(self):
        self.start()
        for _ in range(2):
            self.open_prompt()
            (title,) = self.prompt_titles()
            self.hear(title, QUESTION, HINT)
            press_keys("Escape")
            self.wait_until_no_prompt()
            self.orca.forget()

    def test_menu_is_heard_with_its_status(self):
        self.start()
        self.open_menu()
        self.press("Down", hears=["Every 60 min → Journal"])
        self.press("Down", hears=["Write now"])
        self.press("Up", hears=["Every 60 min → Journal"])
        press_keys("Escape")

    def test_save_that_fails_is_heard_as_an_alert(self):
        self.desktop.journal().write_text("a file where the folder should be")
        self.addCleanup(self.desktop.journal().unlink)
        self.start()
        self.open_prompt()
        self.hear(QUESTION)
        type_text("x")
        self.hear("x")
        press_keys("ctrl+Return")
        self.hear("alert", "Journal", "Could not save entry: Not a directory", "OK")

    def check_for_updates(self, scenario):
        self.start()
        service = UpdateService(self.desktop, scenario)
        self.addCleanup(service.stop)
        self.item.click("Check for Updates…")

    def test_update_is_heard(self):
        self.check_for_updates(OFFER)
        self.hear("Software Update", AVAILABLE, "Install Update button")
        press_keys("Return")
        self.hear("Update Installed", f"Tovla is now updated to version {NEWER}!")

    def test_download_is_heard(self):
        self.check_for_updates({**OFFER, "UpdatePackages": [DOWNLOAD]})
        self.hear("Software Update", AVAILABLE, "Install Update button")
        press_keys("Return")
        self.hear("Downloading update…", "Cancel", "percent")

    def test_update_that_fails_is_heard(self):
        self.check_for_updates(BROKEN)
        self.hear("Software Update", "Update Error!",
                  "The update information is improperly signed, so it was not used.")


if __name__ == "__main__":
    unittest.main()
