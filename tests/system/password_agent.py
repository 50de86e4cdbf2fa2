# SPDX-License-Identifier: MIT
"""A replacement for the desktop's password dialog: polkit's own agent on a terminal."""
import os
import pty
import signal

from desktop import wait_for


class PasswordAgent:
    def __init__(self, pid):
        """From now on, asks for the passwords that the process needs."""
        registered, registering = os.pipe()
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.set_inheritable(registering, True)
            os.execvp("pkttyagent", ["pkttyagent", "--process", str(pid), "--notify-fd",
                                     str(registering)])
        os.close(registering)
        with os.fdopen(registered, "rb") as closed_when_registered:
            closed_when_registered.read()
        os.set_blocking(self.terminal, False)
        self.text = b""

    def wait_for_question(self):
        def is_asked():
            try:
                self.text += os.read(self.terminal, 4096)
            except BlockingIOError:
                pass
            return b"Password: " in self.text

        wait_for(is_asked, "the question for the password")
        self.text = b""

    def answer(self, password):
        os.write(self.terminal, password.encode() + b"\n")

    def close(self):
        os.kill(self.pid, signal.SIGTERM)
        os.waitpid(self.pid, 0)
        os.close(self.terminal)
