"""What belongs to the process: the folder of its resources, and its sounds."""

from __future__ import annotations

from . import _api
from ._arguments import Path, path as path_of, real, whole
from ._errors import Error


def set_resource_path(path: Path) -> None:
    """Sets the folder that holds "Sounds", "Music", "Icons" and "UI", for the whole process."""
    if _api.kit_resource_path(path_of(path)) != 0:
        raise Error("the resource path cannot be set")


def play_sound(name: str) -> None:
    """Plays a file of the resource folder "Sounds" once, without waiting."""
    if _api.kit_play_sound(path_of(name)) != 0:
        raise Error(f"the sound {name!r} cannot be played")


def play_music(name: str) -> None:
    """Plays a file of the resource folder "Music" in a process, in place of any other."""
    if _api.kit_play_music(path_of(name)) != 0:
        raise Error(f"the music {name!r} cannot be played")


def stop_music() -> None:
    """Ends the music."""
    _api.orvel_stop_music()


def play_tone(frequency_hz: float, duration_ms: int) -> None:
    """Plays a sine tone beside whatever else is playing."""
    frequency, duration = real(frequency_hz, "a frequency"), whole(duration_ms, "a duration")
    if not frequency > 0 or duration < 1:
        raise ValueError("a tone has a frequency above 0 and lasts a millisecond at least")
    if _api.kit_play_tone(frequency, duration) != 0:
        raise Error("the tone cannot be played")
