"""The text of the headers' comments."""
import re


def plain(comment):
    """A comment without its marks, its lines kept; "" for none."""
    lines = re.sub(r"^/\*[*!]?<?|\*/$", "", comment or "").splitlines()
    lines = [re.sub(r"^\s*\*? ?", "", line, count=1).rstrip() if number else line.strip()
             for number, line in enumerate(lines)]
    return re.sub(r"@p (?=\w)", "", "\n".join(lines)).strip()
