"""The mutants of a C++ source, as it comes from clang-format."""
import collections
import functools
import pathlib
import re

SOURCES = pathlib.Path(__file__).resolve().parent.parent / "src"

TOKEN = re.compile(r"""
    (?P<skipped>//[^\n]*|/\*.*?\*/|^[ ]*\#[^\n]*|\s+)
  | (?P<string>"(?:\\.|[^"\\])*")
  | (?P<char>'(?:\\.|[^'\\])')
  | (?P<number>0x[0-9a-fA-F'.]+(?:p[+-]?\d+)?[uUlL]*|(?:\d[\d']*\.?\d*(?:e[+-]?\d+)?)[uUlL]*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<=|>>=|->|::|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
""", re.VERBOSE | re.MULTILINE | re.DOTALL)

BINARY = {
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&",
    "^": "&", "&&": "||", "||": "&&", "==": "!=", "!=": "==", "+=": "-=", "-=": "+=", "|=": "&=",
    "<": "<= >=", "<=": "< >", ">": ">= <=", ">=": "> <",
}
WORDS = {"true": "false", "false": "true", "min": "max", "max": "min"}
NO_CALLS = {"if", "for", "while", "switch", "return", "static_assert", "sizeof", "alignas"}

# A change of the text from start to end; the line that it begins in, as it becomes.
Mutant = collections.namedtuple("Mutant", "file start end new line becomes")


def other_number(text):
    """The numbers beside a number, in its own notation."""
    digits = text.rstrip("uUlL").replace("'", "")
    suffix = text[len(text.rstrip("uUlL")):]
    if re.match("0x.*p", digits):
        return [(float.fromhex(digits) + 1).hex()]
    if "." in digits or re.match("[0-9]+e", digits):
        return [repr(float(digits) + 1)]
    value = int(digits, 8 if re.fullmatch("0[0-7]+", digits) else 0)
    return [f"{near}{suffix}" for near in (value + 1, value - 1) if near >= 0]


def other_text(literal):
    """A text that differs in one letter, in its middle."""
    text = literal[1:-1]
    middle = len(text) // 2
    if "\\" in text[max(middle - 1, 0):middle + 1] or not text:
        return f'"x{text}"'
    return f'"{text[:middle]}{chr(ord(text[middle]) + 1)}{text[middle + 1:]}"'


def replacements(tokens, at, text):
    """What may stand in place of a token: pairs of an end and a text."""
    kind, start, end = tokens[at]
    token = text[start:end]
    spaced = text[start - 1].isspace() and text[end:end + 1].isspace()  # as the formatter leaves it
    if kind == "number":
        return [(end, near) for near in other_number(token)]
    if kind == "char" and "\\" not in token:
        return [(end, f"'{chr(ord(token[1]) + 1)}'")]
    if kind == "string":
        return [(end, other_text(token))]
    if kind == "operator" and token in BINARY and spaced:
        return [(end, other) for other in BINARY[token].split()]
    if token in ("++", "--"):
        return [(end, "--" if token == "++" else "++")]
    if token in ("!", "-", "~") and not text[end].isspace():
        return [(end, "")]
    if kind != "word":
        return []
    found = [(end, WORDS[token])] if token in WORDS else []
    last = call_end(tokens, at, text)
    return found + ([(last, "")] if last else [])


def call_end(tokens, at, text):
    """Where the call ends that is all of the statement beginning here; 0 when there is none."""
    words = [text[start:end] for _, start, end in tokens[max(at - 1, 0):]]
    if at == 0 or words[0] not in (";", "{", "}", ")", "else") or words[1] in NO_CALLS:
        return 0
    position = 2
    while words[position] in ("::", ".", "->"):
        position += 2
    if words[position] != "(":
        return 0
    depth = 1
    while depth:
        position += 1
        depth += {"(": 1, ")": -1}.get(words[position], 0)
    return tokens[at - 1 + position][2] if words[position + 1] == ";" else 0


@functools.lru_cache(maxsize=None)
def text_of(file):
    """A file of src/ as it was at first, whatever happens to it while mutants are tried."""
    return (SOURCES / file).read_text(encoding="utf-8")


def mutants_of(file):
    text = text_of(file)
    tokens = [(found.lastgroup, *found.span()) for found in TOKEN.finditer(text)
              if found.lastgroup != "skipped"]
    made = []
    for at, (_, start, _) in enumerate(tokens):
        for end, new in replacements(tokens, at, text):
            first = text.rfind("\n", 0, start) + 1
            behind = text.find("\n", end)
            becomes = " ".join((text[first:start] + new + text[end:behind]).split())
            made.append(Mutant(file, start, end, new, text.count("\n", 0, start) + 1, becomes))
    return made
