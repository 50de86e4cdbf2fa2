# SPDX-License-Identifier: MIT
"""Screenshots, pointer and keys for a session on an X display: its own, or the outer one, which a
Wayland compositor fills with its window."""
import io
import os
import subprocess

from PIL import Image

KEYS = {"Control": "ctrl", "Shift": "shift", "Alt": "alt"}


class X11Screen:
    def __init__(self, display=":41"):
        self.environment = {**os.environ, "DISPLAY": display}

    def _run(self, *command):
        return subprocess.run(command, env=self.environment, check=True, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE).stdout

    def picture(self):
        # Without -silent, each screenshot rings the bell, at which some window managers stop.
        picture = self._run("import", "-silent", "-window", "root", "png:-")
        return Image.open(io.BytesIO(picture)).convert("RGB")

    def move(self, x, y):
        self._run("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y, button=1):
        """Moves in two steps, like a hand: some panels need to see the pointer before the click."""
        self.move(x - 2, y - 2)
        self._run("xdotool", "mousemove", "--sync", str(x), str(y), "click", str(button))

    def press(self, keys):
        """Presses keys, for example "Control+Return"."""
        self._run("xdotool", "key", "+".join(KEYS.get(key, key) for key in keys.split("+")))

    def type(self, text):
        self._run("xdotool", "type", "--delay", "20", "--", text)
