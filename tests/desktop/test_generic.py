# SPDX-License-Identifier: MIT
"""The main workflow on the generic platform: folder, note, day file, alert, end."""
import unittest

import accessibility
from case import DesktopCase, press_keys, type_text, visible_titles
from desktop import wait_for
from tray_host import TrayHost


class GenericTest(DesktopCase):
    desktop_options = {"tray": False}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # The toolkit's item lacks some of the properties that panels expect.
        cls.desktop.tray = TrayHost(is_strict=False)

    def test_first_launch_to_day_file_and_quit(self):
        self.start(folder=False)
        wait_for(lambda: "Tovla Settings" in visible_titles(), "the settings")
        self.choose_folder()
        for note in ("one", "two"):
            self.open_prompt()
            type_text(note)
            press_keys("ctrl+Return")
            self.wait_until_no_prompt()
        (path,) = self.day_files()
        self.assertRegex(path.read_text(),
                         rf"^# {path.stem}\n\n## \d\d:\d\d\none\n\n## \d\d:\d\d\ntwo\n$")
        self.item.click("Quit")
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_save_that_fails_is_told(self):
        self.desktop.journal().parent.joinpath("file").write_text("mine")
        self.start(folderPath=self.desktop.home / "file")
        self.open_prompt()
        type_text("lost")
        press_keys("ctrl+Return")
        accessibility.find("Could not save entry: Not a directory")
        press_keys("Escape")
        self.wait_until_no_prompt()

    def test_updates_are_not_to_be_had_here(self):
        self.start()
        self.item.click("Check for Updates…")
        accessibility.find("Update Error!")


if __name__ == "__main__":
    unittest.main()
