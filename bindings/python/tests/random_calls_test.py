"""Random calls with good and bad arguments, on objects that are closed now and then."""

PROGRAM = r"""
import gc, random, resource, sys
import orvelsdk
from orvelsdk import Box, Canvas, Chart, Error, Face, Host, Screen, Series, Theme, Widget

resource.setrlimit(resource.RLIMIT_AS, (1 << 30, resource.RLIM_INFINITY))
numbers = random.Random(int(sys.argv[1]))
SCENE = {"orvel": 1, "size": [64, 48], "root": {"column": [
    {"text": "${text|-}", "id": "t"}, {"picture": "red"}, {"progress": "${value|0}"}], "id": "root"}}
objects = []

class Odd:
    def __index__(self):
        for each in objects[-3:]:
            getattr(each, "close", lambda: None)()
        gc.collect()
        return 3

def value():
    pick = numbers.randrange(14)
    if pick < 4:
        return numbers.randrange(-5, 80)
    return (lambda: numbers.choice((-2**31, 2**31 - 1, 2**31, -1, 0, 40000)),
            lambda: numbers.choice(("", "a", "Größe\n", "\ud800", "a\0", b"\xff", "x" * 500)),
            lambda: numbers.choice(("#ff0000", "accent", "#12", (1, 2, 3), (0, 0, 0, 0), None)),
            lambda: numbers.choice((0.5, float("nan"), -1e308, True, None, Odd())),
            lambda: [numbers.randrange(-9, 99) for _ in range(numbers.randrange(6))],
            lambda: numbers.choice(objects) if objects else None,
            lambda: numbers.choice(list(orvelsdk.KINDS) + list(orvelsdk.CHARTS) + list(orvelsdk.FACES)),
            lambda: numbers.choice(list(orvelsdk.FORMATS) + ["sun", "left", "root", "t", "text", "value"]),
            lambda: {"text": numbers.choice(("a", 5, None)), "value": numbers.random() * 2},
            lambda: Box(0, 0, 20, 10))[pick - 4]()

def make():
    makers = (lambda: Canvas(numbers.randrange(1, 90), numbers.randrange(1, 70)),
              lambda: Canvas(value(), value()), lambda: Face(numbers.choice(orvelsdk.FACES)),
              lambda: Screen(SCENE, {"text": "a"}, host=Host(picture=lambda name: Canvas(5, 5))),
              lambda: Widget(numbers.choice(list(orvelsdk.KINDS)), value(), value(), text=value(),
                             value=value(), data=value(), face=value()),
              lambda: Chart(numbers.choice(list(orvelsdk.CHARTS)), [value(), Series(value())], value(),
                            value(), value(), value()),
              lambda: Theme(accent=value()))
    objects.append(numbers.choice(makers)())
    if len(objects) > 12:
        del objects[numbers.randrange(len(objects))]

def call():
    target = numbers.choice(objects)
    # What writes files, and what makes up the module's inside, is left out.
    names = [name for name in dir(target) if not name.startswith("_") and name not in
             ("save", "open", "load", "changes", "kept", "of", "from_pixels", "read")]
    names += ["__getitem__", "__setitem__", "__contains__"]
    name = numbers.choice([name for name in names if hasattr(type(target), name)])
    found = getattr(target, name)
    if not callable(found):
        return
    result = found(*[value() for _ in range(numbers.randrange(8))])
    if name == "clip":
        with result as inside:
            inside.clear(value())
    elif isinstance(result, (Canvas, Face)):
        objects.append(result)

raised = done = 0
for _ in range(int(sys.argv[2])):
    try:
        if not objects or numbers.random() < 0.1:
            make()
        else:
            call()
            done += 1
    except (Error, TypeError, ValueError, LookupError, AttributeError, MemoryError):
        raised += 1
print(done, raised)
"""


def test_random_calls_end_in_a_result_or_an_exception(run):
    for seed in (1, 2):
        done, raised = map(int, run(PROGRAM, str(seed), "15000").split())
        assert done > 1000 and raised > 1000
