"""Screens: values, drawing, the tree, hosts, and whatever scenes and values strangers bring."""

import gc
import json
import random
import weakref

import pytest
from conftest import SOURCES
from orvelsdk import Box, Canvas, Change, Error, Face, Host, Screen, Theme

METER = {
    "orvel": 1, "size": [240, 80],
    "root": {"column": [{"text": "${power:1} kW", "face": "bold 18", "id": "power"},
                        {"progress": "${power}", "range": [0, 10], "height": 12}],
             "pad": 12, "gap": 8, "id": "root"}}


def meter(power=2.25):
    return Screen(METER, {"power": power}, name="meter")


def test_what_changes_is_drawn_and_told():
    screen = meter()
    assert screen.size == (240, 80)
    assert screen.draw() == Box(0, 0, 240, 80)
    assert screen.draw() is None
    screen["power"] = 2.3
    assert screen.draw() == Box(12, 43, 216, 12)  # both show as 2.3 kW
    assert screen["power"] == 2.3 and "power" in screen and "tower" not in screen
    assert screen.canvas.checksum() == meter(2.3).render().checksum()


def test_a_value_that_does_not_fit_is_refused_with_its_place():
    screen = meter()
    with pytest.raises(Error, match="power is a text in the data, not a number"):
        screen["power"] = "much"
    assert screen["power"] == 2.25
    with pytest.raises(KeyError):
        screen["tower"]
    for value in (float("nan"), float("inf"), {1, 2}, object(), b"1"):
        with pytest.raises((TypeError, ValueError)):
            screen["power"] = value
    loop = []
    loop.append(loop)
    deep = []
    for _ in range(100_000):
        deep = [deep]
    for value in (loop, deep):
        with pytest.raises((ValueError, RecursionError)):
            screen["power"] = value
    for name in ("a b", "days[", "[0]", "."):
        with pytest.raises(Error):
            screen[name] = 1
    for name in (None, 5, "a\0b"):
        with pytest.raises((TypeError, ValueError)):
            screen[name] = 1


def test_changes_are_an_iterator_of_boxes():
    screen = meter()
    boxes = list(screen.changes({"power": power} for power in (2.25, 2.3, 2.3, 9)))
    assert boxes == [Box(0, 0, 240, 80), Box(12, 43, 216, 12), Box(12, 12, 216, 43)]


def test_data_as_a_whole_and_one_after_another():
    screen = meter()
    screen.data = {"power": 1, "other": [1, {"a": None}]}
    assert screen.data == {"power": 1, "other": [1, {"a": None}]} and list(screen) == ["power", "other"]
    screen.update({"power": 2, "other[1].a": "text"})
    assert screen["other[1].a"] == "text" and screen["other"] == [1, {"a": "text"}]
    numpy = pytest.importorskip("numpy")
    screen["power"] = numpy.float32(2.5)
    screen["other"] = numpy.arange(3)
    assert screen["power"] == 2.5 and screen["other"] == [0, 1, 2]


def test_render_gives_a_canvas_of_its_own():
    screen = meter()
    one, other = screen.render(), screen.render({"power": 7})
    assert one.checksum() != other.checksum() == meter(7).render().checksum()
    assert screen.draw() == Box(0, 0, 240, 80)  # another canvas than the last time


def test_a_screen_does_not_keep_the_canvases_that_it_drew_on():
    screen = meter()
    canvas = screen.render()
    memory = weakref.ref(canvas._handle)
    del canvas
    assert memory() is None
    assert screen.draw() == Box(0, 0, 240, 80)


def test_expose_draws_again_what_the_canvas_lost():
    screen = meter()
    screen.draw()
    before = screen.canvas.checksum()
    screen.canvas.fill(0, 0, 20, 20, "#ff0000")
    screen.expose(Box(0, 0, 20, 20))
    assert screen.draw() is not None and screen.canvas.checksum() == before


def test_what_is_there():
    screen = meter()
    assert screen.describe() == ('column #root 0,0 240x80\n  text "2.3 kW" #power 12,12 216x23\n'
                                 '  progress =2.25 12,43 216x12\n')
    assert screen.report() == [] and screen.box("power") == (12, 12, 216, 23)
    assert screen.box("none") is None
    screen.resize(60, 20)
    assert screen.size == (60, 20) == screen.canvas.size
    assert any("overflow" in line for line in screen.report())
    faint = Screen({"orvel": 1, "root": {"text": "a", "color": "#808080", "ground": "#202020"}})
    assert faint.report("rgba") == faint.report()
    assert any("contrast" in line for line in faint.report("grey1", dither="ordered"))
    for bad in (lambda: faint.report("grey"), lambda: faint.report("index8"),
                lambda: faint.report("rgba", dither="some")):
        with pytest.raises(ValueError):
            bad()
    for size in ((0, 1), (32768, 1), (-1, -1)):
        with pytest.raises(Error):
            screen.resize(*size)
    with pytest.raises((TypeError, ValueError)):
        screen.resize(2**31, 1)


def test_the_tree_by_calls():
    screen = meter()
    screen.add("root", {"text": "more", "id": "more"}, at=0)
    assert screen.box("more").y == 12
    screen.change("more", "text", "less")
    screen.change("more", "name", None)
    assert '"less"' in screen.describe()
    screen.remove("more")
    screen.change(None, "theme", "light")
    assert screen.box("more") is None
    for call in (lambda: screen.add("none", {"text": "a"}), lambda: screen.add("root", {"txt": "a"}),
                 lambda: screen.remove("none"), lambda: screen.change("power", "no", 1),
                 lambda: screen.change("none", "text", 1)):
        with pytest.raises(Error):
            call()
    for call in (lambda: screen.add(None, {}), lambda: screen.add("root", {}, at=2**31),
                 lambda: screen.remove(None), lambda: screen.change("root", None, 1),
                 lambda: screen.add("root", {"text": float("nan")})):
        with pytest.raises((TypeError, ValueError)):
            call()


def picture_scene(kind, **more):
    return {"orvel": 1, "size": [40, 40], "root": {"column": [{kind: "thing", **more}], "id": "root"}}


def test_hosts_lend_for_as_long_as_the_screen_is_there():
    red = Canvas(10, 10, "#ff0000")
    screen = Screen(picture_scene("picture"), {}, host=Host(picture={"thing": red}.get))
    red.close()
    del red
    gc.collect()
    assert screen.render()[5, 5] == (255, 0, 0, 255)
    themed = Screen({**picture_scene("rect"), "theme": "mine"}
                    | {"root": {"rect": "accent"}}, {},
                    host=Host(theme=lambda name: Theme(accent="#010203")))
    gc.collect()
    assert themed.render()[5, 5] == (1, 2, 3, 255)
    lettered = Screen(picture_scene("text", face="mine"), {},
                      host=Host(face=lambda name: Face("bold 24") if name == "mine" else None))
    assert lettered.describe() == Screen(picture_scene("text", face="bold 24"), {}).describe()
    included = Screen(picture_scene("include"), {},
                      host=Host(include=lambda name: '{"orvel": 1, "root": {"text": "inside"}}'))
    assert '"inside"' in included.describe()


@pytest.mark.parametrize("what", ["picture", "theme", "face", "include"])
def test_what_a_host_raises_comes_out_of_the_call(what):
    scene = {"picture": picture_scene("picture"), "include": picture_scene("include"),
             "face": picture_scene("text", face="mine"),
             "theme": picture_scene("text", theme="mine")}[what]

    def fail(name):
        raise LookupError(name)

    with pytest.raises(LookupError):
        Screen(scene, {}, host=Host(**{what: fail}))
    for wrong in (5, "text" if what != "include" else 5, object()):
        with pytest.raises(TypeError, match=f"a host's {what}"):
            Screen(scene, {}, host=Host(**{what: lambda name: wrong}))
    try:
        Screen(scene, {}, host=Host(**{what: lambda name: None}))
    except Error:
        assert what != "picture"


def test_a_host_must_not_call_its_screen():
    screens = []

    def picture(name):
        if screens:
            screens[0]["text"] = "again"
        return None

    scene = {"orvel": 1, "size": [40, 40], "root": {"column": [{"text": "${text}"},
                                                                {"picture": "${name}"}]}}
    screens.append(Screen(scene, {"text": "a", "name": "a"}, host=Host(picture=picture)))
    with pytest.raises(Error, match="must not call the screen"):
        screens[0]["name"] = "b"
        screens[0].draw()
    assert screens[0]["text"] == "a"


def test_a_host_may_close_the_screen_that_asks():
    screens = []

    def picture(name):
        for screen in screens:
            screen.close()
        return None

    scene = {"orvel": 1, "size": [40, 40], "root": {"picture": "${name}"}}
    screens.append(Screen(scene, {"name": "a"}, host=Host(picture=picture)))
    screens[0]["name"] = "b"
    assert screens[0].closed


def test_files_beside_the_scene_and_no_others(tmp_path):
    folder = tmp_path / "scenes"
    folder.mkdir()
    Canvas(8, 8, "#00ff00").save(folder / "green.png")
    Canvas(8, 8, "#0000ff").save(folder / "blue.bmp")
    Canvas(8, 8, "#ff0000").save(tmp_path / "red.png")
    (folder / "leads_out.png").symlink_to(tmp_path / "red.png")
    (folder / "part.json").write_text('{"orvel": 1, "root": {"picture": "blue.bmp"}}')
    theme = (SOURCES / "share/themes/paper.json").read_text()
    (folder / "mine.json").write_text(theme)
    nodes = [{"picture": "green.png"}, {"include": "part.json"}, {"picture": "leads_out.png"},
             {"picture": "../red.png"}, {"picture": str(tmp_path / "red.png")}, {"rect": "accent"}]
    scene = {"orvel": 1, "theme": "mine.json", "root": {"row": nodes, "height": 8}}
    (folder / "scene.json").write_text(json.dumps(scene))
    screen = Screen.open(folder / "scene.json", {})
    drawn = screen.render()
    assert drawn[4, 4] == (0, 255, 0, 255) and drawn[12, 4] == (0, 0, 255, 255)
    colors = {drawn[x, y] for x in range(drawn.width) for y in range(drawn.height)}
    assert (255, 0, 0, 255) not in colors
    assert sum("unknown" in line for line in screen.report()) == 3
    for name, reason in (("missing.json", OSError), ("green.png", Error)):
        with pytest.raises(reason):
            Screen.open(folder / name)


def test_hostile_scenes_are_errors():
    good = json.dumps(METER)
    numbers = random.Random(1)
    for text in ["", "{", "null", "[]", "\0", "{}", b"\xff", '{"orvel": 2, "root": {"row": []}}',
                 "[" * 100_000, '{"orvel": 1, "root": ' + '{"row": [' * 5000, good + good,
                 '{"orvel": 1, "size": [99999, 1], "root": {"row": []}}', "\ud800"]:
        with pytest.raises(Error, match=":"):
            Screen(text)
    for _ in range(2000):
        text = list(good)
        for _ in range(numbers.randrange(1, 4)):
            text[numbers.randrange(len(text))] = chr(numbers.choice((34, 44, 48, 91, 123, 0, 0x20ac)))
        try:
            Screen("".join(text), {"power": 1}).render()
        except Error as reason:
            assert str(reason)
    for bad in (None, 5, [1]):
        with pytest.raises(TypeError):
            Screen(bad)


def test_whatever_a_host_lends_raises_comes_out():
    class Odd(Canvas):
        @property
        def closed(self):
            raise KeyError("odd")

    scene = {"orvel": 1, "size": [9, 9], "root": {"picture": "odd"}}
    with pytest.raises(KeyError, match="odd"):
        Screen(scene, host=Host(picture=lambda name: Odd(5, 5)))


def test_bytes_are_as_long_as_their_memory():
    class Long(bytes):
        def __len__(self):
            return 1 << 40

    class Odd(bytes):
        def __bytes__(self):
            return Long(b"{}")

    for read in (Screen, Face.read):
        with pytest.raises(Error) as of_odd:
            read(Odd(b"{}"))
        with pytest.raises(Error) as of_plain:
            read(b"{}")
        assert str(of_odd.value) == str(of_plain.value)


def test_a_box_to_expose_has_four_numbers():
    screen = Screen({"orvel": 1, "root": {"row": []}})
    with pytest.raises(TypeError, match="four whole numbers"):
        screen.expose((1, 2))


def test_a_lone_surrogate_among_values_shows_as_elsewhere():
    screen = Screen({"orvel": 1, "size": [99, 20], "root": {"text": "${a} ${b}"}},
                    {"a": 1, "b": 2})
    screen["a"], screen["b"] = "\ud800!", "\U0001f600 \x7f\\"
    assert screen["a"] == "\ufffd!" and screen["b"] == "\U0001f600 \x7f\\"


FORM = {
    "orvel": 1, "size": [100, 90],
    "root": {"column": [{"toggle": "${on}", "id": "light", "width": 60, "height": 30, "tip": "Light"},
                        {"textbox": "${words}", "id": "words", "height": 30},
                        {"button": "Go", "id": "go", "key": "ctrl+g", "sound": "click",
                         "height": 30}]}}


def form():
    return Screen(FORM, {"on": False, "words": ""})


def test_events_change_values_and_the_changes_are_an_iterator():
    screen = form()
    screen.draw()
    screen.click(30, 15, now=0)
    assert list(screen.pending()) == [Change("value", "light", "on", True)]
    assert screen["on"] is True and screen.draw() is not None
    assert list(screen.pending()) == []
    screen.send("key", key="g", modifiers=["ctrl"], now=1)
    screen.send("key", key=ord("G"), modifiers={"ctrl"}, now=2)
    assert [change.kind for change in screen.pending()] == ["press", "sound"] * 2


def test_a_change_may_be_answered_while_they_are_told():
    screen = form()
    screen.click(30, 15)
    for change in screen.pending():
        screen["words"] = f"{change.name} is {change.value}"
    assert screen["words"] == "on is True"


def test_time_matters_where_a_tooltip_is_to_show():
    screen = form()
    assert screen.wait() is None
    screen.send("move", 30, 15, now=100)
    assert screen.pointer == "hand"
    assert screen.wait(100) == 600 and screen.wait(5000) == 0
    screen.send("time", now=700)
    assert 'tooltip "Light"' in screen.describe()
    screen.send("leave", now=701)
    assert screen.pointer == "arrow"


def test_text_fields_take_words():
    screen = form()
    assert screen.caret is None
    screen.focus("words")
    assert screen.caret is not None
    screen.send("text", text="Größe", now=0)
    screen.send("key", key="backspace", now=1)
    assert screen["words"] == "Größ"
    screen.focus(None)
    assert screen.caret is None
    with pytest.raises(KeyError):
        screen.focus("nobody")


def test_wrong_events_are_told_as_they_are_written():
    screen = form()
    for words, error in ((("push",), ValueError), (("move", 1.5, 2), TypeError),
                         (("move", 2**40, 2), ValueError)):
        with pytest.raises(error):
            screen.send(*words)
    for words, error in (({"key": "any"}, ValueError), ({"modifiers": ["hyper"]}, ValueError),
                         ({"modifiers": "ctrl"}, TypeError), ({"now": 1.5}, TypeError),
                         ({"now": 2**70}, ValueError), ({"text": 5}, TypeError)):
        with pytest.raises(error):
            screen.send("key", **words)
    assert list(screen.pending()) == []
