"""Reads the comments of the headers: their text, and what C cannot say.

The words are few; docs/pages/write-a-binding.md lists them. They stand, from the widest to the
closest:
    - x, y, w: in pixels.           a rule, in the list of a file's, section's or record's comment
    @p value is a fraction          a sentence of a function's own comment
    @param count  written; may be null
    @return the caller's, for kit_face_close(); null ...
What is said closer wins, each thing by itself.
"""
import re

RULE = re.compile(r"^\s*- ([a-z][a-z_\d]*(?:, [a-z][a-z_\d]*)*): (.*?)(?=\n\s*- |\n *\n|\Z)",
                  re.MULTILINE | re.DOTALL)
PARAMETER = re.compile(r"@param ([a-z_0-9, ]+?)  +(.*?)(?=\n *@|\n\n|\Z)", re.DOTALL)
RETURN = re.compile(r"@return (.*?)(?=\n *@|\n\n|\Z)", re.DOTALL)
SENTENCE = re.compile(r"((?:@p \w+(?:,| and|) )+)((?:is|are|may) [^.;]*)")
BLOCK = re.compile(r"^/\*(?!\*).*?\*/$", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"/\* ---- (.+) ---- \*/")

OWNERSHIP = re.compile(r"\b(borrowed|kept|taken|written|changed|static|nothing)\b"
                       r"|the caller's, for (\w+)\(\)")
NEVER_NULL = re.compile(r"null is refused|never null")
MAY_BE_NULL = re.compile(r"may be null|\bor null\b|stays null"
                         r"|\bnull(?:,[^,;]*,)? (?:for|when|where)\b")
LENGTH = re.compile(r"@p (\w+) of (?:them|its bytes)")
UNITS = ((re.compile(r"\b0 or 1\b|^1 when"), "flag"), (re.compile(r"^0\b"), "status"),
         (re.compile(r"\bin (pixels|bytes|percent|hertz|milliseconds)\b"), None),
         (re.compile(r"\bfraction\b"), "fraction"),
         (re.compile(r"\b(?:a|an|the|its|one|same) number\b|^How many\b"), "number"))
ENUM = re.compile(r"\b(an?|of) ((?:orvel|kit)_\w+)")
RAISES = re.compile(r"\b[Rr]aises\s+(std::\w+)")
SHOWN = re.compile(r"\bShown by ([a-z ,]+)\.")
GUARDED = re.compile(r"^(orvel_\w+)\(\), guarded\b")


def body(comment):
    """A comment without its stars, its lines kept; "" for none."""
    lines = re.sub(r"^/\*[*!]?<?|\*/$", "", comment or "").splitlines()
    lines = [re.sub(r"^\s*\*? ?", "", line, count=1).rstrip() if number else line.strip()
             for number, line in enumerate(lines)]
    return "\n".join(lines).strip()


def plain(text):
    """The text of a comment as people read it, with arguments in backquotes."""
    return re.sub(r"@p (\w+)", r"`\1`", text)


def about(text):
    """A function's comment without what it says of arguments and result in places of their own."""
    return RETURN.sub("", PARAMETER.sub("", text)).strip()


def said(text):
    """What a few words say of a pointer or a number, by the keys of the description."""
    text, found = " ".join(text.split()), {}
    owner = OWNERSHIP.search(text)
    if owner:
        found["ownership"] = owner[1] or "caller"
        if owner[2]:
            found["free"] = owner[2]
        until = re.search(rf"{re.escape(owner[0])} (until [^;.,]+)", text)
        if until:
            found["until"] = until[1].removeprefix("until ")
    if MAY_BE_NULL.search(text) or NEVER_NULL.search(text):
        found["null"] = bool(MAY_BE_NULL.search(text))
    if LENGTH.search(text):
        found["length"] = LENGTH.search(text)[1]
    for pattern, name in UNITS:
        unit = pattern.search(text)
        if unit:
            found["unit"] = name or unit[1]
            break
    enum = ENUM.search(text)
    if enum:
        found["unit"], found["of"] = ("one of" if enum[1] != "of" else "sum of"), enum[2]
    return found


def rules(text):
    """Of the names in the lists of a comment, what is said of each."""
    found = {}
    for names, words in RULE.findall(text):
        for name in names.split(", "):
            found[name] = {**found.get(name, {}), **said(words)}
            found[name] |= {"raises": raised(words)} if raised(words) else {}
    return found


def raised(text):
    return sorted(set(RAISES.findall(text)))


def shown_by(text):
    """The kinds of widget that show what a setter sets."""
    match = SHOWN.search(" ".join(text.split()))
    return match[1].split(", ") if match else []


def arguments(text):
    """Of a function's arguments, by name: what its own comment says, and the words."""
    found, words = {}, {}
    for names, sentence in SENTENCE.findall(text):
        for name in re.findall(r"@p (\w+)", names):
            found[name] = {**found.get(name, {}), **said(sentence)}
    for names, sentence in PARAMETER.findall(text):
        for name in names.split(", "):
            found[name] = {**found.get(name, {}), **said(sentence)}
            words[name] = plain(" ".join(sentence.split()))
    return found, words


def result(text):
    """The words that tell what a function returns: after @return, or all."""
    match = RETURN.search(text)
    return " ".join((match[1] if match else text).split()), bool(match)


def places(text):
    """The sections and blocks of a header, as (line, name of the section, rules)."""
    found, name = [], ""
    for match in BLOCK.finditer(text):
        heading = HEADING.fullmatch(match[0])
        name = heading[1] if heading else name
        line = text.count("\n", 0, match.start()) + 1
        found.append((line, name, {} if heading else rules(body(match[0]))))
    return found
