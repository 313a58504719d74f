"""Finds the shared libraries."""
import ctypes
import sys


def load(name):
    """The shared library @p name, wherever the system's loader finds it."""
    return ctypes.CDLL(f"lib{name}.dylib" if sys.platform == "darwin" else f"lib{name}.so.0")
