# SPDX-License-Identifier: MIT
"""A program that owns the clipboard and hangs."""
from Xlib import X
from Xlib.display import Display


class SilentClipboard:
    def __init__(self):
        self.display = Display()
        window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        clipboard = self.display.intern_atom("CLIPBOARD")
        window.set_selection_owner(clipboard, X.CurrentTime)
        self.display.sync()
        assert self.display.get_selection_owner(clipboard) == window
        self.asked = 0

    def questions(self):
        """How often somebody has asked for the content."""
        while self.display.pending_events():
            if self.display.next_event().type == X.SelectionRequest:
                self.asked += 1
        return self.asked

    def close(self):
        self.display.close()
