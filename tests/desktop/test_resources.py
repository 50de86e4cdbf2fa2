# SPDX-License-Identifier: MIT
"""What a hundred prompts leave behind, and a user who may watch no files."""
import os
import re
import subprocess
import unittest
from pathlib import Path

from quiet import QuietCase

PROMPTS = 100
KIB_OF_GROWTH = 1024
# Runs a program as a user who may watch no files.
WITHOUT_INOTIFY = ("unshare", "--map-current-user", "--keep-caps", "sh", "-c",
                   'echo 0 >/proc/sys/user/max_inotify_instances && exec "$@"', "sh")


class ResourcesTest(QuietCase):
    def test_where_no_file_can_be_watched_nothing_polls(self):
        if subprocess.run([*WITHOUT_INOTIFY, "true"], stderr=subprocess.DEVNULL).returncode:
            self.skipTest("user namespaces are not permitted")
        self.desktop.stop_tovlas()
        self.tovla = self.desktop.start_tovla(launcher=WITHOUT_INOTIFY)
        self.tovla.wait_for_tray_item()
        self.pid = self.tovla.process.pid
        self.assertNotIn("inotify", self.open_files())
        self.wait_until_toolkit_is_quiet(self.watch())

    def open_files(self):
        links = Path(f"/proc/{self.pid}/fd").iterdir()
        return " ".join(os.readlink(link) for link in links)

    def test_prompts_leave_no_memory_behind(self):
        self.open_and_close_prompt()
        first = self.private_dirty_kib_when_quiet()
        for _ in range(PROMPTS):
            self.open_and_close_prompt()
        self.assertLess(self.private_dirty_kib_when_quiet() - first, KIB_OF_GROWTH)

    def private_dirty_kib_when_quiet(self):
        calls = self.watch()
        self.wait_until_toolkit_is_quiet(calls)
        calls.stop()
        rollup = Path(f"/proc/{self.pid}/smaps_rollup").read_text()
        return int(re.search(r"Private_Dirty:\s+(\d+) kB", rollup)[1])


if __name__ == "__main__":
    unittest.main()
