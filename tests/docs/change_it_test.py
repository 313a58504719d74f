#!/usr/bin/env python3
"""usage: change_it_test.py SOURCES

What the manual's links hand to the playground."""
import base64
import json
import pathlib
import sys
import unittest
import zlib

sys.dont_write_bytecode = True
SOURCES = pathlib.Path(sys.argv.pop(1))
sys.path.insert(0, str(SOURCES / "docs"))
import change_it  # noqa: E402  (found by the line above)

WIDGET = '''<p class="pair"><img alt="" width="256" height="40" loading="lazy"></p>

```c
kit_draw(canvas, &theme, &(kit_widget){.kind =
    ORVEL_WIDGET_BARS, .box = {4, 4, 120, 12}, .state =
    KIT_FOCUS, .data = kRates, .count = 8});
```
'''
CALL = ("kit_draw(canvas, theme, {kind: ORVEL_WIDGET_BARS, box: [4, 4, 120, 12], state: KIT_FOCUS, "
        "data: [0.2, 0.5, 0.35, 0.8, 0.65, 1, 0.45, 0.1]});")


def state(text):
    """What the first link of a page holds."""
    packed = text.split('href="playground/index.html#1', 1)[1].split('"', 1)[0]
    packed += "=" * (-len(packed) % 4)
    return json.loads(zlib.decompress(base64.urlsafe_b64decode(packed), -15))


class ChangeIt(unittest.TestCase):
    def test_a_widget_is_the_same_call_on_a_canvas_of_the_same_size(self):
        given = state(change_it.added(WIDGET))
        self.assertEqual(given["mode"], "javascript")
        self.assertIn("kit_canvas(128, 20);", given["code"])
        self.assertIn(CALL, given["code"])

    def test_an_icon_is_drawn_by_its_name(self):
        code = state(change_it.added("<figcaption><code>bell</code></figcaption>"))["code"]
        self.assertIn('kit_icon(canvas, "bell", 8, 8, 64, theme.text);', code)

    def test_a_scene_is_handed_over_as_it_stands(self):
        text = '{\n  "orvel": 1, "root": {"text": "\u00e4"}\n}'
        given = state(change_it.added(f"```json a.json\n{text}\n```"))
        self.assertEqual(given, {"mode": "scene", "scene": text, "data": ""})

    def test_what_is_no_scene_has_no_link(self):
        for text in ('```json a.json\n{\n  "accent": 7\n}\n```', "```sh\nls\n```"):
            self.assertEqual(change_it.added(text), text)

    def test_a_theme_is_worn_by_the_dashboard(self):
        given = state(change_it.added("`lagoon.json`: teal"))
        self.assertEqual((given["theme"], len(given["own"])), ("own", 9))

    def test_scenes_that_come_along_are_opened_by_their_names(self):
        for name, scene in change_it.DELIVERED.items():
            self.assertTrue((SOURCES / f"scenes/{scene}.json").is_file())
            self.assertIn(f'href="playground/index.html#{scene}.json"',
                          change_it.added(f"![x](scenes/{name}.png){{: .screen }}"))


if __name__ == "__main__":
    unittest.main()
