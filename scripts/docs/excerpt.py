"""Where the lines that a page shows stand in what a program printed, exactly or, for a refresh, most likely."""

import difflib
import os.path
import re

ELLIPSIS = "…"
ALIKE = 0.6  # least similarity of two lines that say the same with other numbers


class Lost(Exception):
    """Nothing printed resembles what the page shows; a person has to look."""


def shape(line):
    """A line without what a change of numbers changes."""
    return re.sub(r"─+", "─", re.sub(r"\d+", "0", re.sub(r"\s+", " ", line.strip())))


def similarity(a, b):
    """Between 0 and 1 for lines that differ, 2 for the same line."""
    return 2.0 if a == b else difflib.SequenceMatcher(None, shape(a), shape(b), autojunk=False).ratio()


def rank(wanted, line):
    """Similarity, and what two lines of one shape differ in: how much of the beginning they share."""
    return similarity(wanted, line) + len(os.path.commonprefix([wanted, line])) / (2 * len(wanted) or 1)


def best(wanted, lines, start, preferred):
    """The index from `start` on of the line most like `wanted`; of equals the one nearest to `preferred`."""
    ranked = [(rank(wanted, line), -abs(at - preferred), at) for at, line in enumerate(lines) if at >= start]
    _, _, at = max(ranked, default=(0, 0, None))
    if at is None or similarity(wanted, lines[at]) < ALIKE:
        raise Lost(f"nothing like this is shown any more: {wanted}")
    return at


def find(piece, lines, start):
    """The index from `start` on at which the lines of `piece` stand one after the other, or None."""
    places = range(start, len(lines) - len(piece) + 1)
    return next((at for at in places if lines[at : at + len(piece)] == piece), None)


def pieces_of(body):
    """The runs of lines between those that are "...", without blank lines at their ends."""
    pieces = [[]]
    for line in body:
        if line == "...":
            pieces.append([])
        else:
            pieces[-1].append(line)
    return [trimmed(piece) for piece in pieces]


def trimmed(lines):
    first = next((at for at, line in enumerate(lines) if line), len(lines))
    last = next((at for at in range(len(lines), 0, -1) if lines[at - 1]), 0)
    return lines[first:last]


def shows(body, printed):
    """Whether `body`, a list of lines with "..." for what is left out, is what `printed` holds."""
    pieces, at = pieces_of(body), 0
    for number, piece in enumerate(pieces):
        if not piece:
            continue
        place = find(piece, printed, at)
        if place is None or (number == 0 and place != 0):
            return False
        at = place + len(piece)
    return body[-1:] == ["..."] or at == len(printed)


def refreshed(body, printed):
    """The parts of `printed` that `body` shows, each found by its first and its last line; all where it has no "..."."""
    if "..." not in body or shows(body, printed):
        return body if shows(body, printed) else printed
    pieces, at, result = pieces_of(body), 0, []
    for number, piece in enumerate(pieces):
        if number > 0:
            result.append("...")
        if not piece:
            continue
        first = 0 if number == 0 else best(piece[0], printed, at, at)
        last = first if len(piece) == 1 else best(piece[-1], printed, first + 1, first + len(piece) - 1)
        if number == len(pieces) - 1:
            last = len(printed) - 1
        result += printed[first : last + 1]
        at = last + 1
    return result


def unwrapped(printed):
    """The printed lines with single blanks, sentences that were wrapped being one line again."""
    lines = []
    for line in printed:
        if lines and re.match(r"  \S", line) and re.match(r"(•|note:|error:|hint:|warning:|\[)", lines[-1]):
            lines[-1] += " " + line.strip()
        else:
            lines.append(re.sub(r"\s+", " ", line.strip()))
    return lines


def _parts(text):
    head, _, tail = text.partition(ELLIPSIS)
    return head.split(), tail.split()


def _cut(line, head, tail):
    """As many words from both ends of the line as the parts have."""
    words = line.split()
    return words[: len(head)], words[len(words) - len(tail) :]


def line_of(text, lines, start):
    """The index from `start` on of the line that is `text`, which may leave out words by one "…", or None."""
    if ELLIPSIS not in text:
        return next((at for at in range(start, len(lines)) if lines[at] == text), None)
    head, tail = _parts(text)
    return next((at for at in range(start, len(lines)) if _cut(lines[at], head, tail) == (head, tail)), None)


def line_again(text, lines, start):
    """What `text` should be, and the index of its line."""
    at = line_of(text, lines, start)
    if at is not None:
        return text, at
    if ELLIPSIS not in text:
        at = best(text, lines, start, start)
        return lines[at], at
    head, tail = _parts(text)
    cuts = [" ".join(sum(_cut(line, head, tail), [])) for line in lines]
    at = best(" ".join(head + tail), cuts, start, start)
    head, tail = _cut(lines[at], head, tail)
    return " ".join([*head, ELLIPSIS, *tail]), at
