# SPDX-License-Identifier: MIT
"""Serves the installed package's repository where it is expected, and can alter it as an attacker
might."""
import lzma
import os
import shutil
import socket
import subprocess
import sys
from pathlib import Path

from desktop import wait_for

ROOT = Path(__file__).resolve().parent.parent.parent
PORT = 8000


def publish(folder, *packages, **environment):
    subprocess.run([ROOT / "scripts" / "publish", folder, *packages], check=True,
                   stdout=subprocess.DEVNULL,
                   env={**os.environ, "TOVLA_SIGNING_KEY": "tovla", **environment})


class Feed:
    def __init__(self, desktop):
        self.folder = desktop.home / "feed"
        self.release = self.folder / "dists" / "stable"
        self.folder.mkdir()
        desktop.start(sys.executable, "-m", "http.server", str(PORT), "--bind", "127.0.0.1",
                      "--directory", str(self.folder))
        wait_for(is_served, "the repository to be served")

    def serve(self, repository):
        """Serves a copy of the repository published in that folder."""
        for entry in self.folder.iterdir():
            shutil.rmtree(entry)
        shutil.copytree(repository, self.folder, dirs_exist_ok=True)

    def sign_as_attacker(self):
        self.unsign()
        for signed, how in (("InRelease", "--clearsign"), ("Release.gpg", "--detach-sign")):
            subprocess.run(["gpg", "--batch", "--quiet", "--local-user", "attacker", "--armor",
                            "--output", self.release / signed, how, self.release / "Release"],
                           check=True)

    def unsign(self):
        for name in ("InRelease", "Release.gpg"):
            (self.release / name).unlink()

    def alter_release(self):
        for name in ("InRelease", "Release"):
            path = self.release / name
            path.write_text(path.read_text().replace("Components: main", "Components: evil"))

    def alter_index(self):
        for path in self.release.glob("main/*/Packages"):
            altered = path.read_bytes().replace(b"Section: utils", b"Section: games")
            path.write_bytes(altered)
            path.with_suffix(".xz").write_bytes(lzma.compress(altered))

    def alter_packages(self):
        for path in self.folder.glob("pool/**/*.deb"):
            content = bytearray(path.read_bytes())
            content[-100] ^= 1
            path.write_bytes(content)


def is_served():
    with socket.socket() as client:
        return client.connect_ex(("127.0.0.1", PORT)) == 0
