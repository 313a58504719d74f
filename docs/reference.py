"""Writes the reference page from Doxygen's XML of the header."""
import html
import re
import xml.etree.ElementTree as xml

SECTION = re.compile(r"^/\* ---- (.+) ---- \*/$")


def code_name(text):
    return f"<code>{html.escape(text)}</code>"


def inline(element):
    """The text of an element and all in it, as HTML."""
    text = html.escape(element.text or "")
    for child in element:
        if child.tag == "ref":
            target = html.escape("".join(child.itertext()).removesuffix("()"))
            text += f'<a href="#{target}">{inline(child)}</a>'
        elif child.tag == "computeroutput":
            text += f"<code>{inline(child)}</code>"
        elif child.tag == "emphasis":
            text += code_name("".join(child.itertext()))  # what the header calls @p
        elif child.tag == "itemizedlist":
            text += "".join(["<ul>"] + [f"<li>{inline(item)}</li>" for item in child] + ["</ul>"])
        elif child.tag in ("parameterlist", "simplesect"):
            pass  # laid out by themselves
        else:
            text += inline(child)
        text += html.escape(child.tail or "")
    return text


def paragraphs(member):
    out = []
    for place in ("briefdescription", "detaileddescription"):
        for para in member.find(place).findall("para"):
            text = inline(para).strip()
            if text:
                out.append(f"<div>{text}</div>" if "<ul>" in text else f"<p>{text}</p>")
    return out


def parameters(member):
    rows = []
    for item in member.findall(".//parameterlist/parameteritem"):
        name = "".join(item.find("parameternamelist").itertext()).strip()
        rows.append(f"<dt>{code_name(name)}</dt><dd>{inline(item.find('parameterdescription'))}</dd>")
    for section in member.findall(".//simplesect[@kind='return']"):
        rows.append(f"<dt>returns</dt><dd>{inline(section)}</dd>")
    return ['<dl class="parameters">', *rows, "</dl>"] if rows else []


def declaration(member):
    """The function as a C declaration, wrapped at its parameters."""
    result = "".join(member.find("type").itertext())
    head = f"{result}{'' if result.endswith('*') else ' '}{member.findtext('name')}("
    arguments = []
    for parameter in member.findall("param"):
        kind = "".join(parameter.find("type").itertext())
        name = parameter.findtext("declname") or ""
        arguments.append(f"{kind}{'' if kind.endswith('*') or not name else ' '}{name}")
    lines, line = [], head
    for number, argument in enumerate(arguments):
        piece = argument + (");" if number == len(arguments) - 1 else ",")
        if len(line) + len(piece) + 1 > 76:
            lines.append(line)
            line = "    "
        line += ("" if line in (head, "    ") else " ") + piece
    return "\n".join(lines + [line if arguments else head + "void);"])


def sections_of(header):
    """The line numbers at which the header's sections start, and their names."""
    for number, line in enumerate(header.read_text(encoding="utf-8").splitlines(), 1):
        match = SECTION.match(line)
        if match:
            yield number, match[1]


def fields_of(folder, refid):
    compound = xml.parse(folder / f"{refid}.xml").getroot().find("compounddef")
    name = compound.findtext("compoundname")
    rows = [f'## {name} {{: #{name} }}', "", *paragraphs(compound), "",
            '<div class="wide"><table><thead><tr><th>Field</th><th>Meaning</th></tr></thead><tbody>']
    for member in compound.iter("memberdef"):
        kind = "".join(member.find("type").itertext())
        about = " ".join(paragraphs(member)).replace("<p>", "").replace("</p>", "")
        rows.append(f"<tr><td>{code_name(kind + ' ' + member.findtext('name'))}</td>"
                    f"<td>{about}</td></tr>")
    return rows + ["</tbody></table></div>", ""]


def enumeration(member):
    name = member.findtext("name")
    rows = [f"## {name} {{: #{name} }}", "", *paragraphs(member), "",
            '<div class="wide"><table><thead><tr><th>Kind</th><th>Code</th></tr></thead><tbody>']
    for value in member.findall("enumvalue"):
        number = value.findtext("initializer").removeprefix("= ")
        rows.append(f"<tr><td>{code_name(value.findtext('name'))}</td><td>{number}</td></tr>")
    return rows + ["</tbody></table></div>", ""]


def reference(folder, header):
    """The whole page, as Markdown."""
    compound = xml.parse(folder / "orvel_8h.xml").getroot().find("compounddef")
    page = ["# Reference", "", "What the header `orvel.h` says, function by function.", "",
            "## House rules", "", *paragraphs(compound), ""]
    for inner in compound.findall("innerclass"):
        page += fields_of(folder, inner.get("refid"))
    for member in compound.findall("sectiondef[@kind='enum']/memberdef"):
        page += enumeration(member)
    functions = compound.findall("sectiondef[@kind='func']/memberdef")
    functions.sort(key=lambda member: int(member.find("location").get("line")))
    sections = list(sections_of(header))
    for function in functions:
        line = int(function.find("location").get("line"))
        while sections and sections[0][0] < line:
            page += [f"## {sections.pop(0)[1]}", ""]
        name = function.findtext("name")
        page += [f"### {name} {{: #{name} .name }}", "", "```c", declaration(function), "```", "",
                 *paragraphs(function), *parameters(function), ""]
    return "\n".join(page)
