# SPDX-License-Identifier: MIT
"""What a compositor or window manager says about a window; None if it does not say."""
from dataclasses import dataclass


@dataclass
class Window:
    title: str
    program: str
    box: tuple
    active: bool
    above: bool | None = None
    in_taskbar: bool | None = None
    kind: str | None = None
    minimizable: bool | None = None
    maximizable: bool | None = None
    resizable: bool | None = None

    def described(self):
        left, top, right, bottom = self.box
        parts = [f"{right - left}×{bottom - top} at {left}, {top}", self.kind or ""]
        for word, value in (("active", self.active), ("above", self.above),
                            ("in the taskbar", self.in_taskbar), ("minimise", self.minimizable),
                            ("maximise", self.maximizable), ("resize", self.resizable)):
            if value is not None:
                parts.append(word if value else f"not {word}" if word != "resize" else "fixed size")
        return ", ".join(part for part in parts if part)
