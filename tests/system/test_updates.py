# SPDX-License-Identifier: MIT
""""Check for Updates…" in an installed package, with the system's own update service."""
import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "desktop"))

import accessibility  # noqa: E402
from case import (DesktopCase, active_window_title, click, press_keys,  # noqa: E402
                  visible_titles)
from desktop import output, wait_for  # noqa: E402
from feed import ROOT, Feed, publish  # noqa: E402
from password_agent import PasswordAgent  # noqa: E402

TITLE = "Software Update"
PROGRAM = "/usr/bin/tovla"
SOURCES = "/etc/apt/sources.list.d/tovla.sources"
PICTURES = Path("/srv/pictures")
OLDER_PACKAGE, NEWER_PACKAGE = sorted(Path("/srv/packages").glob("*.deb"))
OLDER, NEWER = (package.name.split("_")[1] for package in (OLDER_PACKAGE, NEWER_PACKAGE))
AVAILABLE = "A new version of Tovla is available!"
UP_TO_DATE = "You're up to date!"
ERROR = "Update Error!"
BADLY_SIGNED = "The update information is improperly signed, so it was not used."
NOT_RETRIEVED = "An error occurred in retrieving update information. Please try again later."


def as_root(*command):
    subprocess.run(["sudo", *command], check=True, stdout=subprocess.DEVNULL)


def installed_version():
    return output("dpkg-query", "-W", "-f", "${Status} ${Version}", "tovla")


def newest_sentence():
    """The first item of the changelog's newest section, on one line."""
    changelog = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
    return " ".join(changelog.split("\n- ")[1].split())


def click_button(name):
    extents = accessibility.find(name).get_component_iface().get_extents(
        accessibility.Atspi.CoordType.SCREEN)
    click(extents.x + extents.width // 2, extents.y + extents.height // 2)


class UpdatesTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.feed = Feed(cls.desktop)
        cls.first, cls.second = cls.desktop.home / "first", cls.desktop.home / "second"
        publish(cls.first, OLDER_PACKAGE)
        shutil.copytree(cls.first, cls.second)
        publish(cls.second, NEWER_PACKAGE)

    def setUp(self):
        super().setUp()
        if not installed_version().endswith(f" {OLDER}"):
            as_root("dpkg", "-i", str(OLDER_PACKAGE))
        # Removes the lists and downloads of earlier tests.
        as_root("sh", "-c", "rm -f /var/cache/apt/archives/*.deb /var/lib/apt/lists/*Release* "
                            "/var/lib/apt/lists/*Packages*")

    def check(self):
        if not self.tovla:
            self.start()
        self.item.click("Check for Updates…")
        wait_for(lambda: active_window_title() == TITLE, "the update window to be active")

    def expect(self, headline, text, picture):
        accessibility.find(headline)
        accessibility.find(text)
        self.desktop.wait_until_still()
        self.desktop.screenshot(PICTURES / f"{picture}.png")

    def close(self):
        press_keys("Escape")
        wait_for(lambda: TITLE not in visible_titles(), "the update window to close")

    def expect_refusal(self, text, reason, picture):
        self.expect(ERROR, text, picture)
        accessibility.press("Details")
        details = accessibility.find("Details", accessibility.Atspi.Role.TEXT)
        self.assertIn(reason, accessibility.text_of(details))
        self.desktop.wait_until_still()
        self.desktop.screenshot(PICTURES / f"{picture}-details.png")
        self.close()
        self.assert_older_still_works()

    def assert_older_still_works(self):
        self.assertEqual(installed_version(), f"install ok installed {OLDER}")
        self.assertEqual(os.readlink(f"/proc/{self.tovla.process.pid}/exe"), PROGRAM)
        self.open_prompt()
        press_keys("Escape")
        self.wait_until_no_prompt()

    def offer(self, picture="available"):
        self.check()
        self.expect(AVAILABLE, f"Tovla {NEWER} is now available—you have {OLDER}. Would you like "
                               "to install it now?", picture)

    def restart(self):
        before = self.item.owner
        click_button("Restart Now")
        wait_for(lambda: self.tovla.wait_for_tray_item().owner != before, "a new tray item")
        self.item = self.tovla.wait_for_tray_item()
        # The same process, now running the new file.
        self.assertTrue(self.tovla.is_running())
        self.assertEqual(os.readlink(f"/proc/{self.tovla.process.pid}/exe"), PROGRAM)

    def expect_up_to_date(self, version, picture):
        self.check()
        self.expect(UP_TO_DATE, f"Tovla {version} is currently the newest version available.",
                    picture)
        self.close()

    def test_newer_version_is_installed_and_runs(self):
        self.feed.serve(self.first)
        self.expect_up_to_date(OLDER, "up-to-date")
        self.feed.serve(self.second)
        self.offer()
        notes = accessibility.find("Release Notes", accessibility.Atspi.Role.TEXT)
        self.assertEqual(accessibility.text_of(notes).splitlines()[0], "• " + newest_sentence())
        click_button("Install Update")
        self.expect("Update Installed",
                    f"Tovla is now updated to version {NEWER}! Restart Tovla to use it.",
                    "installed")
        self.assertEqual(installed_version(), f"install ok installed {NEWER}")
        self.assertEqual(os.readlink(f"/proc/{self.tovla.process.pid}/exe"), f"{PROGRAM} (deleted)")
        self.restart()
        self.expect_up_to_date(NEWER, "up-to-date-again")

    def test_version_installed_by_somebody_else_is_run(self):
        self.feed.serve(self.second)
        self.start()
        as_root("dpkg", "-i", str(NEWER_PACKAGE))
        self.check()
        self.expect("A new version of Tovla is ready!", f"Version {NEWER} is already installed; "
                    f"this window is still version {OLDER}.", "replaced")
        self.restart()
        self.expect_up_to_date(NEWER, "up-to-date-replaced")

    def need_password(self):
        as_root("rm", "/run/needs-no-password")
        self.addCleanup(as_root, "touch", "/run/needs-no-password")

    def test_password_that_nobody_can_ask_for_leaves_the_offer(self):
        self.feed.serve(self.second)
        self.need_password()
        self.offer()
        accessibility.press("Install Update")
        self.expect(AVAILABLE, "Authorisation was not given.", "not-authorised")
        self.close()
        self.assert_older_still_works()

    def test_password_is_asked_for(self):
        self.feed.serve(self.second)
        self.need_password()
        self.offer()
        agent = PasswordAgent(self.tovla.process.pid)
        self.addCleanup(agent.close)
        accessibility.press("Install Update")
        agent.wait_for_question()
        accessibility.find("Waiting for authorisation…")  # its progress bar keeps moving
        self.desktop.screenshot(PICTURES / "waiting-for-authorisation.png")
        agent.answer("guess")
        accessibility.find("Authorisation was not given.")
        self.assertEqual(installed_version(), f"install ok installed {OLDER}")
        accessibility.press("Install Update")
        agent.wait_for_question()
        agent.answer("secret")
        accessibility.find("Update Installed")
        self.assertEqual(installed_version(), f"install ok installed {NEWER}")

    def test_signature_of_another_key_is_refused(self):
        self.feed.serve(self.second)
        self.feed.sign_as_attacker()
        self.check()
        self.expect_refusal(BADLY_SIGNED, "NO_PUBKEY", "other-key")

    def test_second_signature_is_no_harm(self):
        """As during a change of keys, when older systems do not know the new one yet."""
        publish(self.second, TOVLA_SIGNING_KEY="attacker tovla")
        self.addCleanup(publish, self.second)
        self.feed.serve(self.second)
        self.offer("two-keys")
        self.close()

    def test_altered_release_is_refused(self):
        self.feed.serve(self.second)
        self.feed.alter_release()
        self.check()
        self.expect_refusal(BADLY_SIGNED, "BADSIG", "altered-release")

    def test_missing_signature_is_refused(self):
        self.feed.serve(self.second)
        self.feed.unsign()
        self.check()
        self.expect_refusal(BADLY_SIGNED, "is not signed", "unsigned")

    def test_altered_index_is_refused(self):
        self.feed.serve(self.second)
        self.feed.alter_index()
        self.check()
        self.expect_refusal(NOT_RETRIEVED, "Hashes of expected file", "altered-index")

    def test_expired_release_is_refused(self):
        publish(self.second, TOVLA_VALID_DAYS="-1")
        self.addCleanup(publish, self.second)
        self.feed.serve(self.second)
        self.check()
        self.expect_refusal(NOT_RETRIEVED, "is expired", "expired")

    def test_altered_package_is_refused(self):
        self.feed.serve(self.second)
        self.feed.alter_packages()
        self.offer("altered-package-offered")
        accessibility.press("Install Update")
        self.expect_refusal("The update could not be downloaded or is improperly signed. "
                            f"Tovla {OLDER} stays installed.", "Hash Sum mismatch",
                            "altered-package")

    def test_missing_network_is_told(self):
        self.feed.serve(self.second)
        as_root("ip", "route", "del", "default")
        self.addCleanup(as_root, "ip", "route", "add", "default", "dev", "lo")
        self.check()
        self.expect_refusal("No network connection. Please try again when you are online.",
                            "offline", "offline")

    def test_missing_source_is_told(self):
        self.feed.serve(self.second)
        as_root("mv", SOURCES, "/root")
        self.addCleanup(as_root, "mv", "/root/tovla.sources", SOURCES)
        self.check()
        self.expect(ERROR, "Your system does not follow a software source for Tovla, so newer "
                           "versions cannot be found.", "no-source")
        self.close()
        self.assert_older_still_works()

    def test_copy_that_is_not_installed_is_told(self):
        copy = self.desktop.home / "tovla"
        shutil.copy(PROGRAM, copy)
        os.environ["TOVLA"] = str(copy)
        self.addCleanup(os.environ.update, TOVLA=PROGRAM)
        self.check()
        self.expect("Tovla can't be updated from here.",
                    "This copy was not installed by your system's package manager (it runs from "
                    f"{copy}). Update it the way it was installed.", "not-managed")
        self.close()
        self.assertTrue(self.tovla.is_running())


if __name__ == "__main__":
    unittest.main()
