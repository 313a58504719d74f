"""Links from the manual's pages to the playground, with what they show as its program or scene."""
import base64
import json
import re
import zlib

import interface

PAGE = "playground/index.html"
STATE = re.compile(r'width="(\d+)" height="(\d+)" loading="lazy"></p>.*?```c\nkit_draw\(canvas, &theme, '
                   r"&\(kit_widget\)(\{.*?\})\);\n```\n", re.DOTALL)
RATES = "[0.2, 0.5, 0.35, 0.8, 0.65, 1, 0.45, 0.1]"
ICON = re.compile(r"<figcaption><code>([\w-]+)</code>")
SCENE = re.compile(r'^```json [\w./-]+\n(\{.*?^\})\n```$', re.DOTALL | re.MULTILINE)
PICTURE = re.compile(r"^!\[[^\]]*\]\(scenes/(\w+)\.png\)\S* ?\S* ?\}$", re.MULTILINE)
DELIVERED = {"paper": "weather/mono", "colours": "weather/seven", "home": "home/dashboard",
             "energy": "energy/dashboard", "instrument": "instrument/boiler",
             "settings": "settings/page", "departures": "departures/board"}
THEME = re.compile(r"^`([\w-]+)\.json`: .*$", re.MULTILINE)


def link(state):
    """The address of the playground that shows a state, as its page link.js reads it."""
    deflate = zlib.compressobj(9, zlib.DEFLATED, -15)
    packed = deflate.compress(json.dumps(state).encode()) + deflate.flush()
    return f"{PAGE}#1{base64.urlsafe_b64encode(packed).decode().rstrip('=')}"


def program(width, height, lines):
    """A program of the playground that draws on a canvas."""
    code = ("const theme = {};\norvel_theme_light(theme);\n"
            f"const canvas = kit_canvas({width}, {height});\n"
            f"orvel_canvas_clear(canvas, theme.background);\n{lines}\n")
    return link({"mode": "javascript", "code": code})


def record(text):
    """An initialiser of C as JavaScript takes it."""
    text = re.sub(r"\s+", " ", text).replace("kRates, .count = 8", RATES)
    text = re.sub(r"\.box = \{([^}]*)\}", r".box = [\1]", text)
    return re.sub(r"\.(\w+) =", r"\1:", text)


def change(address):
    return f'<p class="change"><a href="{address}">Change it</a></p>\n'


def widget(match):
    call = f"kit_draw(canvas, theme, {record(match[3])});"
    return match[0] + "\n" + change(program(int(match[1]) // 2, int(match[2]) // 2, call))


def icon(match):
    call = f'kit_icon(canvas, "{match[1]}", 8, 8, 64, theme.text);'
    return f'<figcaption><a href="{program(80, 80, call)}"><code>{match[1]}</code></a>'


def scene(match):
    if '"orvel": 1' not in match[1] or '"root"' not in match[1]:
        return match[0]
    return f"{match[0]}\n\n{change(link({'mode': 'scene', 'scene': match[1], 'data': ''}))}"


def delivered(match):
    if match[1] not in DELIVERED:
        return match[0]
    return f"{match[0]}\n\n{change(f'{PAGE}#{DELIVERED[match[1]]}.json')}"


def theme(match):
    path = interface.SOURCES / f"share/themes/{match[1]}.json"
    if not path.is_file():
        return match[0]
    own = path.read_text(encoding="utf-8")
    shown = (interface.SOURCES / "scenes/energy/dashboard.json").read_text(encoding="utf-8")
    state = {"mode": "scene", "scene": shown, "data": "", "theme": "own", "own": json.loads(own)}
    return f"{match[0]}\n\n{change(link(state))}"


def added(text):
    """A page with such links."""
    for pattern, linked in ((STATE, widget), (ICON, icon), (SCENE, scene), (PICTURE, delivered),
                            (THEME, theme)):
        text = pattern.sub(linked, text)
    return text
