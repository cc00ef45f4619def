"""Tables whose first heading is "measured": every number in them stands in some output on the same page."""

import re

TABLE = re.compile(r"^\| measured \|.*\n\|[-|: ]+\|\n((?:\|.*\n)+)", re.MULTILINE)
BLOCK = re.compile(r"^```\n(.*?)^```", re.MULTILINE | re.DOTALL)


def problems(text):
    """A line for every number in backticks that no block of the page shows."""
    shown = set(re.findall(r"[-\w.+]+", " ".join(BLOCK.findall(text))))
    numbers = [number for table in TABLE.findall(text) for number in re.findall(r"`(-?[\d.]+(?:e[-+]\d+)?)`", table)]
    return [f"{number} of a table stands in no output of the page" for number in numbers if number not in shown]
