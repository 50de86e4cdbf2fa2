# SPDX-License-Identifier: MIT
"""Waits for a condition with a deadline, and keeps serving the buses meanwhile."""
import time

from gi.repository import GLib


class InVain(Exception):
    """The condition did not come true in time."""


def wait_for(condition, what, patience=30):
    """Waits until the condition's result is true, and returns it."""
    context = GLib.MainContext.default()
    deadline = time.monotonic() + patience
    while True:
        while context.pending():
            context.iteration(False)
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise InVain(f"waited {patience} s for {what}, without success")
        GLib.timeout_add(50, lambda: False)
        context.iteration(True)


def comes(condition, patience=5):
    """Like wait_for, but returns a false value instead of raising InVain."""
    try:
        return wait_for(condition, "", patience)
    except InVain:
        return None
