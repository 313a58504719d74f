"""Every method with good arguments, with nothing, with the wrong types and at the ends of its ranges."""

import math
import pickle

import orvelsdk
import pytest
from orvelsdk import (Box, Canvas, Chart, Closed, Color, Error, Face, Host, Screen, Series, Theme,
                      Widget)

LOWEST, HIGHEST = -(2**31), 2**31 - 1
BAD_INTS = [None, "1", 1.5, b"1", [1], 2**31, -(2**31) - 1, 2**63, 10**30]
BAD_TEXTS = [None, 1, 1.5, ["a"], "a\0b", b"a\0b"]
BAD_COLORS = [None, 1, "red", "#12", "#gggggg", "#1234567", "１23456", (1, 2), (1, 2, 3, 4, 5),
              (256, 0, 0), (-1, 0, 0), (0.5, 0, 0), "#１２３４５６"]
ODD_TEXTS = ["", "ä€😀", "\ud800", "a\ud800b", b"\xff\xfe\xc3", "\u202e\u00ad\u200b", "x" * 1_000_000,
             "\n\t\r"]
REFUSED = (TypeError, ValueError, Error)


def canvas():
    return Canvas(32, 24)


def refuse(errors, *calls):
    for call in calls:
        with pytest.raises(errors):
            call()


# Of each method of a canvas: a good call, as a function of four whole numbers; how many it takes.
DRAWING = {
    "line": 4, "rect": 4, "fill": 4, "circle": 3, "disc": 3, "triangle": 6,
}


@pytest.mark.parametrize("name", DRAWING)
def test_shapes_take_any_int_and_nothing_else(name):
    target = canvas()
    method, count = getattr(target, name), DRAWING[name]
    for value in (LOWEST, -1, 0, 1, 7, HIGHEST, True):
        assert method(*[value] * count) is None
        for place in range(count):
            numbers = [3] * count
            numbers[place] = value
            method(*numbers, "#ff0000")
    for bad in BAD_INTS:
        for place in range(count):
            numbers = [3] * count
            numbers[place] = bad
            refuse((TypeError, ValueError), lambda: method(*numbers))
    for bad in BAD_COLORS:
        refuse(REFUSED, lambda: method(*[3] * count, bad))


def test_shapes_draw():
    for name, count in DRAWING.items():
        before, after = canvas(), canvas()
        getattr(after, name)(*[2, 3, 9, 8, 5, 14][:count], "#fedcba")
        assert before.checksum() != after.checksum(), name
        assert (0xfe, 0xdc, 0xba, 255) in {after[x, y] for x in range(32) for y in range(24)}, name


def test_pixels_are_set_and_told():
    target = canvas()
    target[3, 4] = "#01020304"
    assert target[3, 4] == Color(1, 2, 3, 4) == (1, 2, 3, 4)
    assert target[-1, 0] == target[32, 0] == target[LOWEST, HIGHEST] == (0, 0, 0, 0)
    target[HIGHEST, 0] = "accent"
    for place in (1, (1,), (1, 2, 3), None, ("a", 1), (2**31, 0)):
        with pytest.raises(REFUSED):
            target[place]
        with pytest.raises(REFUSED):
            target[place] = "text"


@pytest.mark.parametrize("bad", BAD_INTS + [0, -1])
def test_a_canvas_has_sides(bad):
    refuse(REFUSED, lambda: Canvas(bad, 1), lambda: Canvas(1, bad))


@pytest.mark.parametrize("text", ODD_TEXTS, ids=lambda text: repr(text)[:12])
def test_any_text_can_be_drawn(text):
    target = canvas()
    assert isinstance(target.text(text, 0, 10), int)
    assert target.text_box(text, (0, 0, 30, 12), "bold 12", "center") in (True, False)
    assert target.text_wrap(text, (0, 0, 30, 12), align="right") >= 0
    target.signs(text, 0, 0)
    face = Face("sans 12")
    assert face.width(text) >= 0 and face.missing(text) >= 0
    target.widget("button", 0, 0, text=text)
    assert Widget("label", text=text).size()[1] > 0
    target.chart("bars", [Series([1], text if isinstance(text, str) else "")], 0, 0, 30, 20,
                 unit=text, legend=True, axes=True)


@pytest.mark.parametrize("bad", BAD_TEXTS, ids=repr)
def test_what_is_no_text_is_refused(bad):
    target, face = canvas(), Face()
    refuse((TypeError, ValueError, Error, OSError), lambda: target.text(bad, 0, 0),
           lambda: target.text_box(bad, (0, 0, 9, 9)), lambda: target.text_wrap(bad, (0, 0, 9, 9)),
           lambda: target.signs(bad, 0, 0), lambda: target.icon(bad, 0, 0, 16),
           lambda: target.bitmap(bad, 0, 0), lambda: face.width(bad), lambda: face.missing(bad),
           lambda: face.at(bad, 0), lambda: face.x_of(bad, 1), lambda: Face(bad),
           lambda: Face.open(bad), lambda: Face.read(bad), lambda: Theme.load(bad),
           lambda: Theme().save(bad), lambda: target.save(bad), lambda: Screen.open(bad),
           lambda: orvelsdk.play_sound(bad), lambda: orvelsdk.play_music(bad))


def test_a_lone_surrogate_shows_as_the_sign_for_it():
    one, other = canvas(), canvas()
    one.text("a\ud800", 0, 12)
    other.text("a\ufffd", 0, 12)
    assert one.checksum() == other.checksum()


def test_boxes_are_four_numbers():
    target = canvas()
    for good in ((0, 0, 9, 9), [0, 0, 9, 9], Box(LOWEST, LOWEST, HIGHEST, HIGHEST),
                 (HIGHEST, HIGHEST, HIGHEST, HIGHEST), (0, 0, -1, LOWEST)):
        target.text_box("a", good)
        target.text_wrap("a", good)
    for bad in (None, 1, (1, 2, 3), (1, 2, 3, 4, 5), ("a", 0, 0, 0), (2**31, 0, 1, 1), "abcd"):
        refuse((TypeError, ValueError), lambda: target.text_box("a", bad),
               lambda: target.text_wrap("a", bad),
               lambda: target.pixels(box=bad) if bad is not None else target.pixels(box=1))


def test_alignments_are_names():
    for align in ("left", "center", "centre", "right"):
        canvas().text_box("a", (0, 0, 9, 9), align=align)
    for bad, error in (("middle", ValueError), (None, TypeError), (1, TypeError)):
        refuse(error, lambda: canvas().text_box("a", (0, 0, 9, 9), align=bad))


def test_icons():
    assert len(orvelsdk.ICONS) == 68 and "home" in orvelsdk.ICONS
    target = canvas()
    for name in orvelsdk.ICONS:
        target.icon(name, 1, 1, 16)
    target.icon("sun", LOWEST, HIGHEST, 16384, "accent")
    for name in ("no such", ""):
        with pytest.raises(Error, match=f"there is no icon '{name}'; orvelsdk.ICONS lists them"):
            target.icon(name, 0, 0, 16)
    for size in (0, -1, 16385):
        with pytest.raises(Error, match=f"the icon 'sun' cannot be drawn {size} pixels wide"):
            target.icon("sun", 0, 0, size)


def test_pasting():
    one, other = canvas(), canvas()
    one.clear("#00000000")
    one[0, 0] = "#ff0000"
    other.clear("#00ff00")
    other.paste(one, 5, 5, stamp=True)
    assert other[5, 5] == (255, 0, 0, 255) and other[6, 5] == (0, 255, 0, 255)
    other.paste(one, 5, 5, (0, 0, 2, 1))
    assert other[6, 5] == (0, 0, 0, 0) and other[7, 5] == (0, 255, 0, 255)
    other.paste(other, 1, 1)
    other.paste(one, LOWEST, HIGHEST, (LOWEST, LOWEST, HIGHEST, HIGHEST))
    for bad in (None, 1, b"canvas", Theme()):
        refuse(TypeError, lambda: other.paste(bad, 0, 0))


def test_clipping_draws_inside_its_box_alone():
    target = canvas()
    with target.clip(-3, 4, 10, 5) as inside:
        assert inside.size == (7, 5) and inside.origin == (0, 4)
        inside.clear("#ffffff")
    shown = {(x, y) for x in range(32) for y in range(24) if target[x, y] == (255, 255, 255, 255)}
    assert shown == {(x, y) for x in range(7) for y in range(4, 9)}
    assert inside.closed
    with target.clip(40, 0, 5, 5) as nothing:
        assert nothing is None
    with pytest.raises(KeyError):
        with target.clip(0, 0, 32, 24) as inside:
            inside.clear("#ff0000")
            raise KeyError
    assert target[0, 4] == (255, 255, 255, 255)  # what was begun is not copied back


def test_every_kind_of_widget():
    assert len(orvelsdk.KINDS) == 28
    for kind in orvelsdk.KINDS:
        if kind == "image":
            continue
        for state in ({}, {"hover": True}, {"active": True}, {"focus": True}, {"disabled": True}):
            widget = Widget(kind, 1, 1, text="sun", icon="sun", data=[0.2, 1, None], **state)
            w, h = widget.size()
            assert w > 0 and h > 0, kind
            Canvas(40, 40).draw(widget)
        for value in (LOWEST, 0, HIGHEST, math.nan, math.inf, -math.inf, 1e308):
            amount = int(value) if math.isfinite(value) and abs(value) < 2**31 else 0
            Canvas(40, 40).widget(kind, 1, 1, text="sun", value=value, amount=amount, caret=amount,
                                  anchor=-1, data=[value], focus=True)


def test_widgets_refuse_what_they_cannot_draw():
    refuse(REFUSED, lambda: Widget("gizmo"), lambda: Widget(None), lambda: Widget(3),
           lambda: Widget("button", 2**31), lambda: Widget("button", text=5),
           lambda: Widget("tabs", text=["a|b"]), lambda: Widget("bars", data="123"),
           lambda: Widget("bars", data=["1"]), lambda: Widget("bars", data=[[1]]),
           lambda: Widget("slider", value="1"), lambda: Widget("badge", amount=1.5),
           lambda: Widget("textbox", caret=None), lambda: Widget("button", face="sans 13"),
           lambda: Widget("button", face=12), lambda: Widget("button", hint="a\0"),
           lambda: Widget("button", text=["a", None]))
    for kind, box in (("icon", (0, 0, 9, 9)), ("button", (0, 0, -1, 5)), ("image", (0, 0, 0, 0))):
        with pytest.raises(Error, match="cannot be"):
            canvas().widget(kind, *box, text="no such thing")
    changed = Widget("button")
    changed.kind = "gizmo"
    with pytest.raises(ValueError, match="gizmo"):
        canvas().draw(changed)
    for bad in (None, "button", canvas()):
        refuse(TypeError, lambda: canvas().draw(bad))


def test_charts():
    values = [1, 2.5, None, math.nan, math.inf, -1e300, 1e300]
    for kind in orvelsdk.CHARTS:
        canvas().chart(kind, [values, Series(values, "n", "error"), []], 0, 0, 32, 24, axes=True,
                       labels=["a", "b"], legend=True, decimals=9, unit="°", face="sans 11")
        canvas().chart(kind, [], 0, 0, 32767, 1)
    refuse(REFUSED, lambda: Chart("pie", [[1]], 0, 0, 9, 9), lambda: Chart("line", [1], 0, 0, 9, 9),
           lambda: Chart("line", [["a"]], 0, 0, 9, 9), lambda: Chart("line", 5, 0, 0, 9, 9),
           lambda: Chart("line", [[1]] * 33, 0, 0, 9, 9),
           lambda: Chart("line", [[1]], 0, 0, 9, 9, decimals=-1),
           lambda: Chart("line", [[1]], 0, 0, 9, 9, labels=["a|b"]),
           lambda: Chart("line", [[1]], 0, 0, 9, 9, low="0"),
           lambda: Chart("line", [Series([1], 5)], 0, 0, 9, 9),
           lambda: Chart("line", [Series([1], "", "pink")], 0, 0, 9, 9))
    for box, ends in (((0, 0, -1, 9), (0, 1)), ((0, 0, 32768, 9), (0, 1)), ((0, 0, 9, 9), (2, 1)),
                      ((0, 0, 9, 9), (0, math.inf)), ((0, 0, 9, 9), (math.nan, 1))):
        with pytest.raises(Error, match="cannot be drawn"):
            canvas().chart("line", [[1]], *box, low=ends[0], high=ends[1])


def test_colors():
    assert Color.of("#0a0B0c") == (10, 11, 12, 255) and str(Color(1, 2, 3, 4)) == "#01020304"
    assert Color(0, 0, 0).mix("#ffffff", 50) == (127, 127, 127, 255)
    assert (Color(255, 255, 255).grey, Color(0, 0, 0).grey) == (255, 0)
    for bad in BAD_COLORS:
        refuse(REFUSED, lambda: Color.of(bad))
    for bad in (-1, 101, None, 0.5):
        refuse(REFUSED, lambda: Color(0, 0, 0).mix("#ffffff", bad))


def test_themes():
    theme = Theme.light(accent="#fe640b")
    assert theme.accent == (0xfe, 0x64, 0x0b, 255) and theme != Theme.light() != Theme.dark()
    assert Theme.of("light") == Theme.light() and dict(theme)["accent"] == theme.accent
    assert theme.copy() == theme and theme.copy(error="#000000") != theme
    assert pickle.loads(pickle.dumps(theme)) == theme and eval(repr(theme)) == theme
    for bad in ("moss", None, 5):
        refuse(REFUSED, lambda: Canvas(1, 1, theme=bad))
    for bad in BAD_COLORS:
        with pytest.raises(REFUSED):
            theme.accent = bad
    refuse((AttributeError, TypeError, ValueError), lambda: theme.color("moss"),
           lambda: Theme(moss="#000000"), lambda: theme.moss,
           lambda: setattr(theme, "moss", "#000000"), lambda: hash(theme))


@pytest.mark.parametrize("text", ["", "[]", "{", "{}", "null", '{"accent": 5}', b"\xff\xff", "[" * 9999,
                                  '{"accent": "#000000", "accent": "#000000"}', " " * (2 << 20)],
                         ids=lambda text: repr(text)[:12])
def test_a_hostile_theme_is_an_error_with_its_name(text):
    with pytest.raises(Error, match="^moss.json: "):
        Theme.read(text, "moss.json")


def test_faces():
    for name in orvelsdk.FACES:
        face = Face(name)
        assert face.ascent > 0 and face.descent >= 0 and face.line > 0 and face.cap > 0
        assert "8" in face and 0x38 in face and "\U0010ffff" not in face and -1 not in face
        assert face.width("88") > face.width("8") > 0
    face = Face("sans 12")
    text = "größer"
    assert [face.at(text, face.x_of(text, i)) for i in range(7)] == list(range(7))
    assert face.x_of(text, 99) == face.width(text) and face.x_of(text, -5) == 0
    assert face.at(text, LOWEST) == 0 and face.at(text, HIGHEST) == 6
    assert Face("digits 64").missing("abc") == 3
    assert Face("digits 64").fallback("sans 12").missing("abc") == 0
    refuse(REFUSED, lambda: Face("sans 13"), lambda: Face(""), lambda: Face.of(12),
           lambda: "ab" in face, lambda: None in face, lambda: 2**31 in face,
           lambda: face.x_of(text, 1.5), lambda: face.fallback(None),
           lambda: face.fallback("sans 13"))
    chain = face
    for _ in range(7):
        chain = chain.fallback("bold 12")
    with pytest.raises(Error, match="8 faces"):
        chain.fallback("bold 12")


@pytest.mark.parametrize("font", [b"", b"STARTFONT", b"\0" * 100, b"STARTFONT 2.1\nCHARS 1\n" * 50,
                                  b"\xff" * 100_000])
def test_a_hostile_font_is_an_error_with_a_reason(font):
    with pytest.raises(Error, match="font"):
        Face.read(font)


@pytest.mark.parametrize("kind", ["canvas", "face", "screen"])
def test_what_is_closed_says_so(kind):
    made = {"canvas": canvas(), "face": Face("bold 12"),
            "screen": Screen('{"orvel": 1, "root": {"row": []}}')}[kind]
    calls = {"canvas": [lambda: made.clear(), lambda: made[0, 0], lambda: made.png(),
                        lambda: made.text("a", 0, 0), lambda: made.pixels(), lambda: made.checksum(),
                        lambda: canvas().paste(made, 0, 0), lambda: made.widget("button", 0, 0),
                        lambda: made.save("x.bmp"), lambda: made.copy(),
                        lambda: made.clip(0, 0, 1, 1).__enter__()],
             "face": [lambda: made.width("a"), lambda: made.fallback("sans 12"), lambda: made.line,
                      lambda: canvas().text("a", 0, 0, made), lambda: Widget("button", face=made)],
             "screen": [lambda: made.render(), lambda: made.draw(canvas()), lambda: made["a"],
                        lambda: made.describe(), lambda: made.size, lambda: made.box("a"),
                        lambda: made.__setitem__("a", 1), lambda: made.report()]}[kind]
    with made:
        assert not made.closed
    made.close()
    assert made.closed and repr(made)
    for call in calls:
        with pytest.raises(Closed, match=f"the {kind} is closed"):
            call()
    with pytest.raises(Closed):
        with made:
            pass


def test_what_is_drawn_on_is_a_canvas():
    screen = Screen('{"orvel": 1, "root": {"row": []}}')
    for bad in (screen, Face(), Theme(), Widget("button"), None, 5, "canvas"):
        for draw in (Widget("button").draw, Chart("line", [[1]], 0, 0, 9, 9).draw,
                     lambda it, theme=None: screen.draw(it or 0)):
            with pytest.raises(TypeError, match="what is drawn on is a Canvas"):
                draw(bad, Theme())


def test_objects_of_the_library_are_neither_copied_nor_pickled():
    for made in (canvas(), Face(), Screen('{"orvel": 1, "root": {"row": []}}')):
        refuse(TypeError, lambda: pickle.dumps(made))


def test_sounds_that_are_not_there_are_errors(run):
    run("""
import orvelsdk, pytest
orvelsdk.set_resource_path("/nonexistent")
orvelsdk.stop_music()
for call in (lambda: orvelsdk.play_sound("none"), lambda: orvelsdk.play_music("none")):
    with pytest.raises(orvelsdk.Error):
        call()
for hz, ms in ((0, 10), (-1, 10), (440, 0), (float("nan"), 10), ("a", 10), (440, 1.5), (440, 2**31)):
    with pytest.raises((TypeError, ValueError)):
        orvelsdk.play_tone(hz, ms)
for path in (None, 5, "a\\0b"):
    with pytest.raises((TypeError, ValueError)):
        orvelsdk.set_resource_path(path)
""")


def test_hosts_are_hosts():
    refuse((TypeError, AttributeError), lambda: Host(movie=None),
           lambda: Screen({"orvel": 1, "root": {"row": []}}, host=5))


def test_iterators_are_drawn_more_than_once():
    drawn = Canvas(90, 60)
    drawn.chart("line", [[1, 2, 3]], 0, 0, 90, 60, axes=True, labels=["a", "b"])
    chart = Chart("line", iter([map(float, "123")]), 0, 0, 90, 60, axes=True, labels=iter("ab"))
    named = Chart("line", [Series(iter([1, 2, 3]))], 0, 0, 90, 60, axes=True, labels=iter("ab"))
    for each in (chart, chart, named):
        canvas = Canvas(90, 60)
        canvas.draw(each)
        assert canvas.checksum() == drawn.checksum()
    bars, tabs = Widget("bars", data=map(float, "123")), Widget("tabs", text=iter(["a", "b"]))
    for _ in range(2):
        assert bars.size() == Widget("bars", data=[1, 2, 3]).size()
        assert tabs.size() == Widget("tabs", text=["a", "b"]).size()
    bars.draw(drawn)
    assert bars.data == [1, 2, 3] and tabs.text == ["a", "b"]


def test_one_number_is_no_row_of_a_chart():
    with pytest.raises(TypeError, match="several numbers, not one int"):
        Chart("line", [1, 2, 3], 0, 0, 90, 60)


def test_the_theme_of_a_canvas_can_be_set_and_its_size_cannot():
    canvas = Canvas(9, 9)
    canvas.theme = "light"
    canvas.clear()
    assert canvas.theme == Theme.light() and canvas[0, 0] == Theme.light().background
    with pytest.raises(TypeError):
        canvas.theme = 5
    for name in ("width", "height", "size"):
        with pytest.raises(AttributeError):
            setattr(canvas, name, 5)
