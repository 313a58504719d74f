#!/usr/bin/env python3
"""A day of the dashboard scenes/energy in a moving picture, in the dark and in the light theme.

usage: a_day.py FOLDER

Writes a_day_dark.gif and a_day_light.gif. Each frame is the same screen with other values; Pillow makes
the file of them. No frame has more colours than a GIF file can hold, so that nothing is lost."""
import json
import pathlib
import sys

from PIL import Image

from orvelsdk import Screen

SCENE = pathlib.Path(__file__).resolve().parent.parent / "scenes/energy/dashboard.json"


def at(hour, sample):
    """What the screen shows at a time, such as 13.5."""
    power, now = sample["power"], int(hour)
    solar, use = power["solar"][now], power["use"][now]
    battery = max(12, min(100, round(28 + 9 * (hour - 8)))) if hour < 18 else round(100 - 9 * (hour - 18))
    grid = solar - use
    charging = 10 <= hour < 17
    washing = 12 <= hour < 14.5
    _, house, cell, feed = sample["sources"]
    return {
        **sample,
        "time": f"{now}:{round(hour % 1 * 60):02}",
        "letters": 0 if 9 <= hour < 11 else 2,
        "saved": round(0.01 + max(0, hour - 7) * 0.35, 2),
        "own": round(min(91, 20 + solar * 18)),
        "now": {**sample["now"], "temp": round(12 + 9 * max(0, 1 - abs(hour - 14) / 8))},
        "sources": [
            {**sample["sources"][0], "value": f"{solar:.1f}"}, {**house, "value": f"{use:.1f}"},
            {**cell, "value": str(battery)},
            {**feed, "value": f"{abs(grid):.1f}"} if grid >= 0 else
            {**feed, "name": "From grid", "icon": "download", "color": "#d20f39", "value": f"{-grid:.1f}"}],
        "power": {**power, "solar": power["solar"][:now + 1] + [None] * (23 - now),
                  "use": power["use"][:now + 1] + [None] * (23 - now)},
        "heating": {"on": hour < 9 or hour >= 18, "now": 19.5 + min(1.5, max(0, hour - 6) / 6),
                    "target": 21 if hour >= 6.5 else 18},
        "car": {"on": charging, "level": 100 if hour >= 17 else max(22, 22 + 11 * (hour - 10)),
                "state": "Charging" if charging else "Full" if hour >= 17 else "Waits for the sun"},
        "dishes": {"on": washing, "state": "Washing" if washing else
                   "Done" if hour >= 14.5 else "Waits for the sun"},
    }


def frames(theme):
    """The pictures of a day, from 6 to 22 o'clock, every half hour."""
    scene = json.loads(SCENE.read_text(encoding="utf-8"))
    sample = scene["sample"]
    screen = Screen({**scene, "theme": theme}, at(6, sample), name="dashboard")
    for half_hour in range(12, 45):
        screen.data = at(half_hour / 2, sample)
        screen.draw()
        yield screen.canvas.image().convert("RGB")


def save(pictures, path):
    """Writes pictures of at most 256 colours as they are."""
    reduced = [picture.quantize(256, Image.Quantize.MEDIANCUT, dither=Image.Dither.NONE)
               for picture in pictures]
    for picture, few in zip(pictures, reduced):
        if few.convert("RGB").tobytes() != picture.tobytes():
            sys.exit(f"a_day: more than 256 colours do not fit into {path}")
    reduced[0].save(path, save_all=True, append_images=reduced[1:], loop=0, optimize=True,
                    duration=[180] * (len(reduced) - 1) + [2000])


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: a_day.py FOLDER")
    for each in ("dark", "light"):
        save(list(frames(each)), pathlib.Path(sys.argv[1]) / f"a_day_{each}.gif")
