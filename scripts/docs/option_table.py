"""The table of options: a row an option, a mark for every subcommand whose --help lists it.

Its marks follow the help; an option that has no row gets one with the help's words, one that is gone loses its row.
"""

import re

HEAD = re.compile(r"^\| option \| \|((?: `\w+` \|)+)\n\|[-|: ]+\|\n", re.MULTILINE)
ROW = re.compile(r"^\| `((?:--?[\w-]+)[^`]*)` \| (.*?) \|((?: •? ?\|)+)$")


def _options_of(subcommand, workshop):
    """Each option by its long name with its value and the words of the help."""
    options = {}
    for line in workshop.shown_by(f"varmodel {subcommand} --help"):
        start = re.match(r"  (?:-\w,)?(--[\w-]+)(.*?)(?:\s{2,}(.*))?$", line)
        if start:
            name = start[1]
            options[name] = [name + re.sub(r":.*| (REQUIRED|Excludes|Needs).*", "", start[2]), start[3] or ""]
        elif re.match(r" {20,}\S", line) and options:
            options[name][1] = f"{options[name][1]} {line.strip()}".strip()
        elif line.strip():
            name = None if not options else name
    return options


def _row(written, words, subcommands, listed, name):
    marks = "".join(" • |" if name in listed[subcommand] else "  |" for subcommand in subcommands)
    return f"| `{written}` | {words} |{marks}"


def refreshed(text, workshop):
    head = HEAD.search(text)
    if head is None:
        return text
    subcommands = re.findall(r"`(\w+)`", head[1])
    listed = {subcommand: _options_of(subcommand, workshop) for subcommand in subcommands}
    end = text.find("\n\n", head.end())
    rows, seen = [], set()
    for line in text[head.end() : end].split("\n"):
        row = ROW.match(line)
        name = re.search(r"--[\w-]+", row[1])[0]
        if any(name in options for options in listed.values()):
            rows.append(_row(row[1], row[2], subcommands, listed, name))
            seen.add(name)
    for subcommand in subcommands:
        for name, (written, words) in listed[subcommand].items():
            if name not in seen:
                rows.append(_row(written, words, subcommands, listed, name))
                seen.add(name)
    return text[: head.end()] + "\n".join(rows) + text[end:]
