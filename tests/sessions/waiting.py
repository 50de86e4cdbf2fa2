# SPDX-License-Identifier: MIT
"""Waiting for a condition, with a deadline, while the buses go on being served."""
import time

from gi.repository import GLib


class InVain(Exception):
    """What was waited for did not come about."""


def wait_for(condition, what, patience=30):
    """Returns what the condition returned once that is true."""
    context = GLib.MainContext.default()
    deadline = time.monotonic() + patience
    while True:
        while context.pending():
            context.iteration(False)
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise InVain(f"waited {patience} s in vain for {what}")
        GLib.timeout_add(50, lambda: False)
        context.iteration(True)


def comes(condition, patience=5):
    """Whether it comes about at all."""
    try:
        return wait_for(condition, "", patience)
    except InVain:
        return None
