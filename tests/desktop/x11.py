# SPDX-License-Identifier: MIT
"""The few queries to the X server for which there is no command-line tool."""
import ctypes


def selection_has_owner(name):
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XGetSelectionOwner.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
    x11.XGetSelectionOwner.restype = ctypes.c_ulong
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    display = x11.XOpenDisplay(None)
    try:
        return x11.XGetSelectionOwner(display, x11.XInternAtom(display, name.encode(), 0)) != 0
    finally:
        x11.XCloseDisplay(display)
