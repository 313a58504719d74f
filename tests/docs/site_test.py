#!/usr/bin/env python3
"""usage: site_test.py SITE CHROMIUM FOLDER_OF_BROWSER [AXE]

The manual's site, opened and used in Chromium, from its folder and from a server that lets pages load
nothing but the site's own files. AXE, axe-core's axe.min.js, looks for what keeps people out."""
import functools
import http.server
import json
import pathlib
import sys
import threading
import unittest

sys.dont_write_bytecode = True
SITE, CHROMIUM = pathlib.Path(sys.argv[1]), sys.argv[2]
sys.path.insert(0, sys.argv[3])
AXE = pathlib.Path(sys.argv[4]).read_text(encoding="utf-8") if len(sys.argv) > 4 else None
from browser import Browser  # noqa: E402

SOURCES = pathlib.Path(__file__).resolve().parents[2]
LOOKS = ((1280, "light"), (390, "dark"))


class Strict(http.server.SimpleHTTPRequestHandler):
    def end_headers(self):
        self.send_header("Content-Security-Policy", "default-src 'self'")
        super().end_headers()

    def log_message(self, *_):
        pass


class Site(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser(CHROMIUM)
        cls.server = http.server.ThreadingHTTPServer(
            ("127.0.0.1", 0), functools.partial(Strict, directory=SITE))
        threading.Thread(target=cls.server.serve_forever, daemon=True).start()

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.server.shutdown()
        cls.server.server_close()

    def setUp(self):
        self.browser.errors.clear()

    def tearDown(self):
        self.assertEqual(self.browser.errors, [])

    def found(self, text):
        """Where the search leads to: the names of the best pages, without folders."""
        links = self.browser.ask(f"""(async () => {{
            const field = document.querySelector("#search"), found = document.querySelector("#found");
            field.value = {json.dumps(text)};
            found.replaceChildren();
            field.dispatchEvent(new Event("input"));
            for (let i = 0; i < 300 && !found.children.length; ++i) {{
                await new Promise((then) => setTimeout(then, 20));
            }}
            return [...found.querySelectorAll("a")].map((link) => link.href);
        }})()""")
        return [link.rsplit("/", 1)[1] for link in links[:3]]

    def search(self):
        self.assertEqual(self.found("orvel_widget_set_data")[0], "reference.html#orvel_widget_set_data")
        self.assertEqual(self.found("kit_pixels_str")[0], "reference-kit.html#kit_pixels_stride")
        self.assertIn("widgets.html#stepper", self.found("stepper"))
        self.assertIn("scenes.html#what-is-refused", self.found('unknown kind; did you mean "button"?'))
        self.assertIn("sound.html", " ".join(self.found("suono non trovato")))
        self.assertEqual(self.found("xyzzyplugh"), [])

    def test_search_finds_functions_widgets_and_messages_in_a_folder(self):
        self.browser.open(SITE / "index.html", 1280, 900)
        self.search()

    def test_search_finds_the_same_where_pages_may_load_nothing_from_elsewhere(self):
        self.browser.call("Page.navigate",
                          url=f"http://127.0.0.1:{self.server.server_port}/widgets.html")
        while self.browser.message().get("method") != "Page.loadEventFired":
            pass
        self.search()

    def test_every_function_has_its_line_in_the_side_list(self):
        described = json.loads((SOURCES / "bindings/orvel_api.json").read_text(encoding="utf-8"))
        pages = ("reference.html", "reference-kit.html", "reference-screen.html")
        for library, page in zip(described["libraries"], pages, strict=True):
            self.browser.open(SITE / page, 1280, 900)
            listed = self.browser.ask("[...document.querySelectorAll('aside a')].map(a => a.hash)")
            for function in library["functions"]:
                self.assertIn(f"#{function['name']}", listed)

    def test_a_button_copies_the_code_beside_it(self):
        self.browser.open(SITE / "first-screen.html", 1280, 900)
        copied = self.browser.ask("""(async () => {
            let copied;
            Object.defineProperty(navigator, "clipboard",
                                  {value: {writeText: async (text) => { copied = text; }}});
            const button = document.querySelector(".copy");
            button.click();
            await null;
            return [copied, button.textContent];
        })()""")
        self.assertTrue(copied[0].startswith("#include <orvel_kit.h>"))
        self.assertNotIn("Copy", copied[0])
        self.assertEqual(copied[1], "Copied")

    def test_no_page_is_wider_than_a_phone_or_a_desktop(self):
        for page in sorted(SITE.glob("*.html")):
            self.browser.open(page, 1280, 900)
            for width, scheme in LOOKS:
                self.browser.look(width, 900, scheme)
                shown, whole = self.browser.ask(
                    "(({clientWidth, scrollWidth}) => [clientWidth, scrollWidth])(document.documentElement)")
                self.assertIn(width - shown, range(20), page)  # the bar at the side
                self.assertLessEqual(whole, shown, page)

    def test_pictures_are_smoothed_or_show_each_pixel_as_a_square_of_whole_pixels(self):
        for page in sorted(SITE.glob("*.html")):
            self.browser.open(page, 1280, 900)
            for width in (1280, 900, 390):
                self.browser.look(width, 900)
                self.assertEqual(self.browser.ask("""(async () => {
                    const pictures = [...document.querySelectorAll("main img")];
                    for (const picture of pictures) picture.loading = "eager";
                    await Promise.all(pictures.map((picture) => picture.decode()));
                    return pictures.filter((picture) => {
                        const [drawn, shown] = [picture.naturalWidth, picture.clientWidth];
                        return getComputedStyle(picture).imageRendering === "pixelated" && shown % drawn;
                    }).map((picture) => [picture.src, picture.naturalWidth, picture.clientWidth]);
                })()"""), [], (page.name, width))

    @unittest.skipUnless(AXE, "axe-core is not given")
    def test_nothing_keeps_people_out(self):
        for page in sorted(SITE.glob("*.html")):
            for width, scheme in LOOKS:
                self.browser.open(page, width, 900, scheme)
                self.browser.ask(AXE + "; 0")
                with self.subTest(page=page.name, width=width, scheme=scheme):
                    self.assertEqual(self.browser.ask(
                        "axe.run({resultTypes: ['violations'], preload: false}).then((r) =>"
                        " r.violations.map((v) => v.id + ': ' + v.nodes[0].html))"), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
