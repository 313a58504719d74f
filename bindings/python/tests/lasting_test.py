"""Nothing ends the interpreter: collection in any order, threads, too little memory; nothing leaks."""

import copy
import gc
import pickle
import random
import threading

import pytest
from orvelsdk import Canvas, Closed, Error, Face, Host, Screen, Theme, Widget

SCENE = {"orvel": 1, "size": [64, 48], "root": {"column": [
    {"text": "${text}"}, {"progress": "${value}"}, {"picture": "red"}]}}


def test_collection_in_any_order():
    numbers = random.Random(3)
    for _ in range(200):
        canvas, face, theme = Canvas(30, 20), Face("sans 12"), Theme()
        chain = face.fallback("bold 12").fallback("mono 12")
        red = Canvas(5, 5, "#ff0000")
        screen = Screen(SCENE, {"text": "a", "value": 0.5}, host=Host(picture={"red": red}.get))
        widget = Widget("button", 0, 0, text="a", face=chain)
        things = {"canvas": canvas, "face": face, "theme": theme, "chain": chain, "red": red,
                  "screen": screen, "widget": widget}
        loop = [things]
        loop.append(loop)
        del canvas, face, theme, chain, red, screen, widget, loop
        names = list(things)
        numbers.shuffle(names)
        for name in names:
            thing = things.pop(name)
            if hasattr(thing, "close") and numbers.random() < 0.5:
                thing.close()
            del thing
            if "canvas" in things and "widget" in things:
                try:
                    things["canvas"].draw(things["widget"])
                except Closed:
                    assert name == "chain" or "chain" not in things
            if "screen" in things and not things["screen"].closed:
                things["screen"].render()
        gc.collect(0)
    gc.collect()


def test_a_del_in_a_cycle_draws_on_what_is_collected_with_it(run):
    assert run("""
import gc
from orvelsdk import Canvas, Face, Host, Screen
scene = {"orvel": 1, "size": [64, 48], "root": {"picture": "red"}}
red = Canvas(64, 48, "#ff0000")
class Panel:
    def __init__(self, *parts):
        self.parts, self.me = parts, self
    def __del__(self):
        canvas, chain, screen = self.parts
        canvas.text("late", 2, 20, chain)
        told.append((canvas[299, 199], screen.render().checksum() == red.checksum()))
class Reborn(Canvas):
    def __del__(self):
        kept.append(self)
told, kept = [], []
for i in range(30):
    Panel(Canvas(300, 200, "#00ff00"), Face("sans 12").fallback("bold 12"),
          Screen(scene, host=Host(picture={"red": red.copy()}.get)))
    canvas = Reborn(300, 200, "#00ff00")
    canvas.me = canvas
    del canvas
    gc.collect()
    others = [Canvas(300, 200) for _ in range(3)]
    assert kept[-1][299, 199] == (0, 255, 0, 255), kept[-1][299, 199]
    kept[-1].fill(0, 0, 300, 200)
print(len(told), set(told) == {((0, 255, 0, 255), True)}, len(kept))
""") == "30 True 30\n"


def test_what_the_library_holds_is_not_copied_by_the_module_copy():
    screen = Screen({"orvel": 1, "root": {"row": []}})
    for thing in (Canvas(3, 3), Face("sans 12"), screen):
        for make in (copy.copy, copy.deepcopy, pickle.dumps):
            with pytest.raises(TypeError, match="neither pickled nor copied"):
                make(thing)


def test_a_widget_outlives_its_canvas_and_says_so():
    canvas, widget = Canvas(30, 20), Widget("button", text="a")
    canvas.draw(widget)
    canvas.close()
    with pytest.raises(Closed):
        widget.draw(canvas)
    widget.draw(Canvas(5, 5))


def test_at_the_interpreters_end_everything_is_released(run):
    assert run("""
import orvelsdk, sys
keep = [orvelsdk.Canvas(9, 9), orvelsdk.Face("sans 12").fallback("bold 12"),
        orvelsdk.Screen({"orvel": 1, "root": {"row": []}})]
keep.append(keep)
sys.keep = keep
print("done")
""") == "done\n"


MEMORY = """
import gc, resource, sys
from orvelsdk import Canvas, Chart, Face, Screen, Widget

def resident():
    with open("/proc/self/statm") as file:
        return int(file.read().split()[1]) * resource.getpagesize()

def one(i):
    with Canvas(64, 48, (i % 256, 0, 0)) as canvas:
        canvas.text("memory", 2, 20, "bold 12")
        canvas.draw(widget)
        with canvas.clip(0, 0, 9, 9) as inside:
            inside.clear()
        if i % 10 == 0:
            canvas.png()
            canvas.chart("line", [[1, 2, i]], 0, 0, 64, 48)
            Face("sans 12").fallback("bold 12").width("a")
        if i % 50 == 0:
            screen = Screen(scene, {"value": i})
            screen["value"] = "text"
            screen.render()
            try:
                screen["no such thing ["] = 1
            except Exception:
                pass

scene = {"orvel": 1, "size": [64, 48], "root": {"text": "${value}"}}
widget = Widget("button", 5, 5, text="a")
for i in range(2000):
    one(i)
gc.collect()
before = resident()
for i in range(int(sys.argv[1])):
    one(i)
gc.collect()
print(resident() - before)
"""


def test_memory_is_flat_over_100_000_canvases(run):
    assert int(run(MEMORY, "100000")) < 1 << 20


def test_too_little_memory_is_an_exception(run):
    assert run("""
import resource
import orvelsdk
from orvelsdk import Canvas, Screen
screen = Screen({"orvel": 1, "root": {"row": [], "width": 20000, "height": 20000}})
fitting = Canvas(4000, 4000)
used = int(open("/proc/self/statm").read().split()[0]) * resource.getpagesize()
resource.setrlimit(resource.RLIMIT_AS, (used + (48 << 20), resource.RLIM_INFINITY))
told = []
for what in (lambda: Canvas(2**31 - 1, 2**31 - 1), lambda: Canvas(20000, 20000), fitting.pixels,
             fitting.png, fitting.checksum, fitting.copy, screen.render,
             lambda: fitting.clip(0, 0, 4000, 4000).__enter__(),
             lambda: fitting.save("/dev/null", format="ppm"),
             lambda: fitting.paste(fitting, 1, 1)):
    try:
        what()
        told.append("fits")
    except MemoryError as error:
        told.append(type(error).__name__)
kept = []
try:
    while True:
        kept.append(Canvas(200, 200))
except orvelsdk.OutOfMemory:
    pass
made = len(kept)
kept.clear()
Canvas(200, 200).text("still here", 0, 12)
print(made > 100, told[:4] == ["OutOfMemory"] * 4, set(told) <= {"OutOfMemory", "MemoryError", "fits"})
""") == "True True True\n"


def in_threads(work, count=4):
    """Runs it in threads at the same time; raises what any of them raised."""
    caught, start = [], threading.Barrier(count)

    def guarded(number):
        try:
            start.wait()
            work(number)
        except BaseException as error:
            caught.append(error)

    threads = [threading.Thread(target=guarded, args=(number,)) for number in range(count)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if caught:
        raise caught[0]


def test_threads_draw_what_one_thread_draws(monkeypatch):
    def drawn(number):
        canvas = Canvas(120, 80, (number, 0, 0))
        canvas.text(f"thread {number}", 4, 20, "bold 14")
        canvas.widget("progress", 4, 30, 100, 12, value=number / 10)
        return canvas.checksum()

    expected = [drawn(number) for number in range(4)]

    def work(number):
        for _ in range(300):
            assert drawn(number) == expected[number]

    in_threads(work)


def test_threads_share_a_canvas_and_a_screen(run):
    run("""
import sys
sys.path.insert(0, sys.argv[1])
sys.setswitchinterval(1e-6)
from lasting_test import *
canvas, widget = Canvas(64, 48), Widget("button", 3, 3, text="a")
screen = Screen(SCENE, {"text": "a", "value": 0.5}, host=Host(picture=lambda name: Canvas(5, 5)))

def work(number):
    for i in range(300):
        canvas.fill(i % 60, i % 40, 5, 5, (number, i % 256, 0))
        canvas.draw(widget)
        widget.text = f"{number} {i}"
        screen["text"] = f"{number} {i}"
        screen["value"] = i % 10 / 10
        screen.draw(canvas if i % 3 else None)
        canvas.png()
        assert screen.render().size == (64, 48)
        screen.describe()

in_threads(work)
screen["text"], screen["value"] = "a", 0.5
assert screen.render().checksum() == Screen(SCENE, {"text": "a", "value": 0.5},
                                            host=Host(picture=lambda name: Canvas(5, 5))
                                            ).render().checksum()
""", str(__file__).rsplit("/", 1)[0])


def test_threads_close_what_others_use(run):
    run("""
import sys
sys.path.insert(0, sys.argv[1])
sys.setswitchinterval(1e-6)
from lasting_test import *
for _ in range(150):
    canvas, screen = Canvas(64, 48), Screen(SCENE, {"text": "a", "value": 0.5})
    face = Face("sans 12").fallback("bold 12")

    def work(number):
        if number == 0:
            canvas.close(), screen.close(), face.close()
            return
        try:
            for i in range(20):
                canvas.text("a", i, i, face)
                screen["text"] = str(i)
                screen.draw(canvas)
                canvas.checksum()
        except Closed:
            pass

    in_threads(work)
""", str(__file__).rsplit("/", 1)[0])


def test_an_interrupt_leaves_everything_usable(run):
    run("""
import signal, time
from orvelsdk import Canvas, Host, Screen
def picture(name):
    signal.setitimer(signal.ITIMER_REAL, 0.01)
    time.sleep(1)
def stop(*about):
    raise KeyboardInterrupt
signal.signal(signal.SIGALRM, stop)
scene = {"orvel": 1, "size": [64, 48], "root": {"picture": "red"}}
try:
    Screen(scene, {}, host=Host(picture=picture))
    raise SystemExit("not interrupted")
except KeyboardInterrupt:
    pass
Screen(scene, {}).render()
""")


def test_interrupts_at_any_time_come_out_of_the_call(run):
    told = run("""
import json, random, signal, sys
from orvelsdk import Canvas, Host, Screen
class Stop(BaseException):
    pass
def stop(*about):
    if armed:
        raise Stop
def unraisable(about):
    ignored.append(about)
signal.signal(signal.SIGALRM, stop)
sys.unraisablehook = unraisable
numbers, red, done, ignored, before = random.Random(5), Canvas(4, 4), [0, 0], [], unraisable
rows = [{"text": f"words {i}", "face": "sans 12"} for i in range(200)] + [{"picture": "red"}]
scene = json.dumps({"orvel": 1, "size": [64, 48], "root": {"column": rows}})
for _ in range(600):
    try:
        armed = True
        signal.setitimer(signal.ITIMER_REAL, numbers.random() * 1e-3 + 1e-5)
        Screen(scene, host=Host(picture=lambda name: red)).render()
        armed = False
        done[0] += 1
    except Stop:
        armed = False
        done[1] += 1
    signal.setitimer(signal.ITIMER_REAL, 0)
assert sys.unraisablehook is unraisable
assert not [about for about in ignored if "callback" in (about.err_msg or "")]
print(sum(done), done[1] > 50)
""")
    assert told == "600 True\n"


def test_a_fork_draws_on(run):
    assert run("""
import os
from orvelsdk import Canvas
canvas = Canvas(9, 9, "#ff0000")
child = os.fork()
if child == 0:
    canvas.clear("#00ff00")
    os._exit(0 if canvas[0, 0] == (0, 255, 0, 255) else 1)
assert os.waitpid(child, 0)[1] == 0
print(canvas[0, 0])
""") == "#ff0000\n"


def test_a_library_that_is_not_there_is_an_error(run, tmp_path):
    assert "cannot be loaded" in run("""
try:
    import orvelsdk
except Exception as reason:
    print(reason)
""", ORVELSDK_LIBRARIES=str(tmp_path))


def test_errors_are_what_python_calls_them():
    assert issubclass(Closed, (Error, ValueError)) and issubclass(Closed, Error)


def test_a_subinterpreter_is_refused(run):
    told = run("""
import sys
try:
    import _interpreters as interpreters
except ImportError:
    import _xxsubinterpreters as interpreters
code = f'''
import sys
sys.path[:] = {sys.path!r}
try:
    import orvelsdk
    print("imported")
except ImportError as reason:
    print(reason)
'''
run = getattr(interpreters, "run_string", None) or interpreters.exec
run(interpreters.create(), code)
""")
    assert "orvelsdk works in the main interpreter alone" in told
