#!/usr/bin/env python3
"""The page that orvel-compare --report writes, opened, read and used in Chromium.

Arguments: orvel-compare, the browser, and where a failing run leaves its last screenshot."""
import pathlib
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

sys.dont_write_bytecode = True
from browser import Browser  # noqa: E402

COMPARE, CHROMIUM, KEPT = sys.argv.pop(1), sys.argv.pop(1), sys.argv.pop(1)
NAMES = ["a plain one", "<script>document.title = 'taken'</script>", "only expected", "only actual"]


def png(path, width, height, dot=None):
    """A grey picture with a white dot."""
    rows = bytearray()
    for y in range(height):
        rows.append(0)
        rows += b"".join(b"\xff\xff\xff" if (x, y) == dot else b"\x40\x50\x60" for x in range(width))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(bytes(rows))) + chunk(b"IEND", b""))


class Report(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        root = pathlib.Path(cls.folder.name)
        expected, actual = root / "expected", root / "actual"
        expected.mkdir()
        actual.mkdir()
        for name in NAMES[:2]:
            png(expected / f"{name.replace('/', '_')}.png", 200, 100)
            png(actual / f"{name.replace('/', '_')}.png", 200, 100, (150, 60))
        png(expected / "only expected.png", 20, 20)
        png(actual / "only actual.png", 20, 20)
        png(expected / "same.png", 20, 20)
        png(actual / "same.png", 20, 20)
        cls.page = root / "report.html"
        done = subprocess.run([COMPARE, expected, actual, "--report", cls.page], check=False,
                              stdout=subprocess.DEVNULL)
        assert done.returncode == 1
        cls.browser = Browser(CHROMIUM)

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.folder.cleanup()

    def open(self, width=1280, height=800, **look):
        self.browser.open(self.page, width, height, **look)

    def ask(self, expression):
        return self.browser.ask(expression)

    def mode(self):
        """How the picture that the keys are for is shown."""
        return self.ask("document.activeElement.className.replace(/.*by-(\\w+).*/, '$1')")

    def to_plain_one(self):
        """Selects the picture "a plain one", the second that fails."""
        self.browser.press("j")
        self.browser.press("j")
        self.assertEqual(self.ask("document.activeElement.querySelector('h2').textContent"), NAMES[0])

    def setUp(self):
        self.browser.errors.clear()

    def tearDown(self):
        self.assertEqual(self.browser.errors, [])
        self.browser.screenshot(KEPT)

    def test_every_failing_picture_is_there_and_can_be_seen(self):
        self.open()
        self.assertEqual(self.ask("[...document.querySelectorAll('h2')].map(h => h.textContent)"),
                         ["<script>document.title = 'taken'<_script>", NAMES[0], NAMES[3], NAMES[2],
                          "As expected: 1"])
        self.assertEqual(self.ask("[...document.images].every(i => i.complete && i.naturalWidth > 0)"),
                         True)
        self.assertEqual(self.ask("[...document.querySelectorAll('.picture')].map("
                                  "p => p.querySelectorAll('img').length)"), [3, 3, 1, 1])
        self.assertEqual(self.ask("document.title"), "4 of 5 pictures not as expected")

    def test_what_became_of_a_picture_is_told_once(self):
        self.open()
        self.assertEqual(self.ask("[...document.querySelectorAll('.picture > p:first-of-type')].map("
                                  "p => p.textContent).slice(2)"),
                         ["+ unexpected there, but not expected", "− missing expected, but not there"])

    def test_places_of_one_name_are_no_landmarks(self):
        self.open()
        self.assertEqual(self.ask("document.querySelectorAll('main [role=region]').length"), 0)
        self.assertEqual(self.ask("document.querySelectorAll('main .pane[role=group]').length"), 8)

    def test_nothing_is_loaded_from_elsewhere(self):
        self.open()
        self.assertEqual(self.ask("performance.getEntriesByType('resource')"
                                  ".filter(e => !e.name.startsWith('data:')).length"), 0)

    def test_keys_go_from_picture_to_picture(self):
        self.open()
        for key, index in (("j", 0), ("n", 1), ("j", 2), ("j", 3), ("j", 3), ("k", 2), ("p", 1)):
            self.browser.press(key)
            self.assertEqual(self.ask("[...document.querySelectorAll('.picture')]"
                                      ".indexOf(document.activeElement)"), index)

    def test_keys_choose_how_a_picture_is_shown(self):
        self.open()
        self.to_plain_one()
        for key, mode in (("2", "swipe"), ("3", "blink"), ("4", "difference"), ("1", "three")):
            self.browser.press(key)
            self.assertEqual(self.mode(), mode)

    def test_arrows_swipe(self):
        self.open()
        self.to_plain_one()
        self.browser.press("2")
        self.assertIn("Left of the line: expected", self.ask("document.activeElement.innerText"))
        before = "getComputedStyle(document.activeElement.querySelector('.actual')).clipPath"
        self.assertEqual(self.ask(before), "inset(0px 0px 0px 50%)")
        self.browser.press("ArrowRight")
        self.assertEqual(self.ask(before), "inset(0px 0px 0px 52%)")
        self.browser.press("ArrowLeft")
        self.browser.press("ArrowLeft")
        self.assertEqual(self.ask(before), "inset(0px 0px 0px 48%)")

    def test_the_mouse_swipes(self):
        self.open()
        self.browser.click("#picture-2 button[aria-pressed=false]")  # the first one: Swipe
        self.assertEqual(self.ask("document.querySelector('#picture-2').matches('.by-swipe')"), True)
        x, y, width = self.ask("(b => [b.x, b.y + b.height / 2, b.width])(document.querySelector("
                               "'#picture-2 .views').getBoundingClientRect())")
        self.browser.mouse("mousePressed", x + width / 2, y)
        self.browser.mouse("mouseMoved", x + width / 4, y)
        self.browser.mouse("mouseReleased", x + width / 4, y, 0)
        self.assertAlmostEqual(float(self.ask("document.querySelector('#picture-2 .at').value")), 25,
                               delta=1)

    def test_a_picture_blinks_and_stops(self):
        self.open()
        self.to_plain_one()
        self.browser.press("3")
        shown = "document.activeElement.querySelector('.now').textContent"
        seen = set()
        for _ in range(60):
            seen.add(self.ask(shown))
            if len(seen) == 2:
                break
            time.sleep(0.1)
        self.assertEqual(seen, {"Shown: expected", "Shown: actual"})
        self.browser.press(" ")
        now = self.ask(shown)
        time.sleep(1.6)
        self.assertEqual(self.ask(shown), now)
        self.browser.press(" ")
        self.assertNotEqual(self.ask(shown), now)
        visible = self.ask("['expected', 'actual'].filter(k => getComputedStyle(document.activeElement"
                           ".querySelector('.' + k)).visibility === 'visible')")
        self.assertEqual(visible, [self.ask(shown).split()[-1]])

    def test_nothing_blinks_by_itself_for_those_who_do_not_want_it(self):
        self.open(motion="reduce")
        self.to_plain_one()
        self.browser.press("3")
        time.sleep(1.6)
        self.assertEqual(self.ask("document.activeElement.querySelector('.now').textContent"),
                         "Shown: expected")

    def test_zoom_goes_to_the_difference_in_all_three(self):
        self.open()
        self.to_plain_one()
        for _ in range(5):
            self.browser.press("+")
        self.assertEqual(self.ask("document.activeElement.querySelector('output').textContent"), "16×")
        self.assertEqual(self.ask("document.activeElement.querySelector('img').clientWidth"), 3200)
        places = self.ask("""[...document.activeElement.querySelectorAll('.pane')].map(p =>
            [p.scrollLeft + p.clientWidth / 2, p.scrollTop + p.clientHeight / 2])""")
        for x, y in places:  # the middle of what is seen
            self.assertAlmostEqual(x, 150.5 * 16, delta=2)
            self.assertAlmostEqual(y, 60.5 * 16, delta=2)
        self.browser.press("0")
        self.assertEqual(self.ask("document.activeElement.querySelector('output').textContent"), "fit")

    def test_panes_scroll_together(self):
        self.open()
        self.to_plain_one()
        for _ in range(5):
            self.browser.press("+")
        self.ask("(p => { p.scrollLeft = 100; p.scrollTop = 90; })"
                 "(document.activeElement.querySelector('.difference .pane'))")
        time.sleep(0.3)
        self.assertEqual(self.ask("[...document.activeElement.querySelectorAll('.pane')].map("
                                  "p => [p.scrollLeft, p.scrollTop])"), [[100, 90]] * 3)

    def test_the_difference_is_framed(self):
        self.open()
        frame, image = self.ask("""['.box', 'img'].map(s => (b => [b.x, b.y])(document.querySelector(
            '#picture-2 .difference ' + s).getBoundingClientRect()))""")
        self.assertAlmostEqual(frame[0] - image[0], 150, delta=0.1)
        self.assertAlmostEqual(frame[1] - image[1], 60, delta=0.1)

    def test_it_fits_a_telephone_and_its_buttons_a_finger(self):
        for width in (390, 360, 320):
            self.open(width, 844)
            self.assertLessEqual(self.ask("document.documentElement.scrollWidth"), width)
            self.assertEqual(self.ask("""[...document.querySelectorAll('button')].map(b =>
                b.getBoundingClientRect()).filter(b => b.height < 40 || b.width < 40).length"""), 0)
            # Nor is a word of theirs broken.
            self.assertEqual(self.ask("""[...document.querySelectorAll('button')].filter(b =>
                b.offsetHeight > 42 || b.scrollWidth > b.clientWidth).length"""), 0)

    def test_words_are_readable_dark_and_light(self):
        script = """(() => {
            const light = c => { const v = c / 255; return v <= 0.04045 ? v / 12.92 : ((v + 0.055) / 1.055) ** 2.4; };
            const luminance = text => {
                const [r, g, b] = text.match(/[\\d.]+/g).map(Number);
                return 0.2126 * light(r) + 0.7152 * light(g) + 0.0722 * light(b);
            };
            const ground = e => {
                const color = getComputedStyle(e).backgroundColor;
                return color === 'rgba(0, 0, 0, 0)' ? ground(e.parentElement) : color;
            };
            const low = [];
            for (const e of document.querySelectorAll('h1, h2, p, span.quiet, .state, button, a, kbd, figcaption, li')) {
                const a = luminance(getComputedStyle(e).color), b = luminance(ground(e));
                const ratio = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
                if (ratio < 4.5) low.push([e.tagName, e.textContent.slice(0, 20), ratio]);
            }
            return low;
        })()"""
        grounds = set()
        for scheme in ("light", "dark"):
            self.open(scheme=scheme)
            self.assertEqual(self.ask(script), [])
            grounds.add(self.ask("getComputedStyle(document.body).backgroundColor"))
        self.assertEqual(len(grounds), 2)


if __name__ == "__main__":
    unittest.main()
