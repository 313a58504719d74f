"""Gives what the comments say to the arguments, fields and results that libclang found. What is
said of nobody, and a pointer or number of which nothing is said, is a problem; none is guessed."""
import comments

MEMORY = ("buffer", "bytes", "memory")
POINTERS = ("object", "pointer", "text", "function", *MEMORY)
NUMBERS = ("int", "unsigned", "size", "int64", "double")
WRITES = ("written", "changed")


class Problem(Exception):
    """Something in a header that is to be repaired, in one line."""


class Rules:
    """What the list of a comment says of names, and which names were met."""

    def __init__(self, where, table, below=None):
        self.where, self.table, self.below = where, table, below
        self.met = set()

    def of(self, name):
        wider = self.below.of(name) if self.below else {}
        if name in self.table:
            self.met.add(name)
        return {**wider, **self.table.get(name, {})}

    def check(self):
        for name in self.table:
            if name not in self.met:
                raise Problem(f"{self.where}: a rule for {name}, which nothing is called")


def need(where, thing, found, keys):
    """@p thing with what is found of @p keys: those that must be there, and those that may."""
    required, optional = keys
    for key in required:
        if key not in found:
            raise Problem(f"{where}: nothing is said of its {key} ({thing['c']})")
    for key in (*required, *optional):
        if key in found:
            thing[key] = found[key]


def check_pointer(where, thing, result):
    """That what is said of a pointer can be."""
    owner = thing["ownership"]
    constant = thing.get("const") or thing["type"] in ("text", "bytes")
    if owner in WRITES and (constant or result):
        raise Problem(f"{where}: {owner}, but it is a {thing['c']}")
    if owner in ("static", "caller") and not result:
        raise Problem(f"{where}: only what is returned is {owner}")
    if thing["type"] in MEMORY and owner in (*WRITES, "borrowed") and "length" not in thing:
        raise Problem(f"{where}: nothing is said of its length ({thing['c']})")


def add(where, thing, found, result=False):
    """Adds what is said to an argument, a field or a result."""
    kind = thing["type"]
    if kind in POINTERS:
        need(where, thing, found, (("ownership", "null"), ("free", "until", "length")))
        if not thing.get("array"):
            check_pointer(where, thing, result)
        if thing["ownership"] in WRITES and thing.get("of") in NUMBERS:
            need(where, thing, found, (("unit",), ()))
    elif kind in NUMBERS:
        need(where, thing, found, (("unit",), ("of",)))
        if thing["unit"] == "fraction" and kind != "double":
            raise Problem(f"{where}: a fraction, but it is an {kind}")
        if thing["unit"] == "status" and not result:
            raise Problem(f"{where}: only what is returned is a status")


def call(where, function, rules, text):
    """Adds what is said of a function's arguments and result, also of one that hosts give."""
    own, words = comments.arguments(text)
    names = [each["name"] for each in function["arguments"]]
    for name in own:
        if name not in names:
            raise Problem(f"{where}: it has no argument {name}")
    for argument in function["arguments"]:
        name = argument["name"]
        add(f"{where}: {name}", argument, {**rules.of(name), **own.get(name, {})})
        if argument.get("length", name) not in names:
            raise Problem(f"{where}: {name}: there is no argument {argument['length']}")
        if name in words:
            argument["comment"] = words[name]
    result, explicit = comments.result(text)
    found = rules.of("result")
    key = "unit" if function["returns"]["type"] in NUMBERS else "ownership"
    if explicit or key not in found:
        found = {**found, **comments.said(result)}
    add(f"{where}: result", function["returns"], found, result=True)
    if explicit:
        function["returns"]["comment"] = comments.plain(result)


def guarded_form(where, function, rules, known, text):
    """Where a function is the guarded form of another one, what is said of that one holds."""
    match = comments.GUARDED.search(text)
    if not match:
        return rules
    if match[1] not in known:
        raise Problem(f"{where}: there is no {match[1]}")
    other = known[match[1]]
    function["guards"], other["guarded"] = other["name"], function["name"]
    table = {each["name"]: each for each in other["arguments"]}
    return Rules(where, {**table, "result": other["returns"]}, rules)


def shown_by(where, words, kinds):
    """The kinds of widget that a comment names."""
    names = ["ORVEL_WIDGET_" + word.strip().replace(" ", "_").upper() for word in words]
    for name in names:
        if name not in kinds:
            raise Problem(f"{where}: shown by {name}, which is no kind")
    return names


def function(header, each, rules, known, kinds):
    """Completes a function. @p known are those before it, by name."""
    text, where = each.pop("comment"), f"{header}: {each['name']}"
    inner = guarded_form(where, each, rules, known, text)
    call(where, each, inner, text)
    raises = set(comments.raised(text))
    for argument in each["arguments"]:
        raises |= set(inner.of(argument["name"]).get("raises", []))
    each["raises"] = [] if "guards" in each else sorted(raises)
    kind = each["name"].upper()
    if kind in kinds:
        each["kind"] = kind
    if "_widget_set_" in each["name"]:
        each["shown_by"] = shown_by(where, comments.shown_by(text), kinds)
        if not each["shown_by"]:
            raise Problem(f"{where}: nothing is said of the kinds that show it")
    each["comment"] = comments.plain(comments.about(text))
    for key in ("comment", "arguments", "returns", "raises"):  # as one reads them
        each[key] = each.pop(key)
    known[each["name"]] = each


def record(header, each, rules):
    where = f"{header}: {each['name']}"
    inner = Rules(where, comments.rules(each["comment"]), rules)
    names = [field["name"] for field in each["fields"]]
    for field in each["fields"]:
        place, name = f"{where}: {field['name']}", field["name"]
        base = rules.of("fields") if field["type"] in POINTERS else {}
        found = {**base, **inner.of(name), **comments.said(comments.about(field["comment"]))}
        add(place, field, found)
        if field.get("length", name) not in names:
            raise Problem(f"{place}: there is no field {field['length']}")
        if field["type"] == "function":
            call(place, field, inner, field["comment"])
        field["comment"] = comments.plain(" ".join(comments.about(field["comment"]).split()))
    each["comment"] = comments.plain(each["comment"])
    inner.check()


def check_enums(where, things, enums):
    """That whatever is one or a sum of an enumeration's values names one."""
    for thing in things:
        if thing.get("unit") in ("one of", "sum of") and thing["of"] not in enums:
            raise Problem(f"{where}: {thing['of']} is no enumeration")


def library(each, below, known, kinds):
    """Completes a library in which libclang found @p each; returns its rules."""
    header = each["header"]
    rules = Rules(header, comments.rules(each["comment"]), below)
    places = [(0, "", {}), *each.pop("places")]
    blocks = [(line, name, Rules(f"{header}:{line}", table, rules))
              for line, name, table in places]
    for item in each["records"]:
        record(header, item, rules)
    for item in each["functions"]:
        line = item.pop("line")
        _, item["section"], inner = [block for block in blocks if block[0] < line][-1]
        function(header, item, inner, known, kinds)
    for inner in (rules, *(block[2] for block in blocks)):
        inner.check()
    return rules


def add_all(libraries):
    """Completes what headers.libraries() found, lowest library first."""
    enums = {enum["name"]: enum for each in libraries for enum in each["enums"]}
    kinds = [value["name"] for value in enums["orvel_widget_kind"]["values"]]
    rules, known = None, {}
    for each in libraries:
        rules = library(each, rules, known, kinds)
        values = [value for enum in each["enums"] for value in enum["values"]]
        for item in (each, *each["objects"], *each["enums"], *values):
            item["comment"] = comments.plain(item["comment"])
        for item in (*each["functions"], *each["records"]):
            things = item["fields"] if "fields" in item else [*item["arguments"], item["returns"]]
            check_enums(f"{each['header']}: {item['name']}", things, enums)
