#!/usr/bin/env python3
"""usage: moving_picture_test.py SOURCES BUILD

The moving pictures of the README are those that examples/a_day.py draws, frame by frame, to the pixel.
The bytes of the files are Pillow's, of which there are several versions."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from PIL import Image

SOURCES, BUILD = pathlib.Path(sys.argv.pop(1)), sys.argv.pop(1)


def frames(path):
    """What shows, frame by frame, and for how long."""
    with Image.open(path) as film:
        for number in range(film.n_frames):
            film.seek(number)
            yield film.info["duration"], film.convert("RGB").tobytes()


class MovingPictures(unittest.TestCase):
    def test_are_what_the_example_draws(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, "-B", SOURCES / "examples/a_day.py", folder], check=True,
                           env=os.environ | {"PYTHONPATH": str(SOURCES / "bindings/python"),
                                             "ORVELSDK_LIBRARIES": BUILD})
            for name in ("a_day_dark.gif", "a_day_light.gif"):
                drawn = list(frames(pathlib.Path(folder) / name))
                kept = list(frames(SOURCES / "docs/images" / name))
                self.assertEqual(len(drawn), 33)
                self.assertTrue(drawn == kept, f"{name} is another one; scripts/pictures draws it anew")


if __name__ == "__main__":
    unittest.main()
