"""Lines such as "- `/FORECAST HORIZON=1` → `what the run shows`": each is put into the job that its page prints.

The job is the block of TOML that holds the word COMMAND: the command of the page's line "Command: `…`", to which an
example is added, or in which it takes the place of the subcommand of its name. Several marked texts behind one arrow stand
in the output in this order; "…" in one leaves out words.
"""

import concurrent.futures
import re

from . import excerpt

JOB = re.compile(r"```toml\n((?:(?!```).*\n)*?.*\bCOMMAND\b(?:(?!```).*\n)*)```")
USUAL = re.compile(r"^Command: `([^`]+)`", re.MULTILINE)
EXAMPLE = re.compile(r"^- `(?P<written>[^`]+)` →(?P<found>.*(?:\n  .*)*)", re.MULTILINE)


def _whole(example, usual):
    """The usual command with the example's subcommands instead of its own of these names, or added."""
    given = re.findall(r"/(\w+)", example)
    kept = [part for part in re.split(r" (?=/)", usual) if part.split()[0][1:] not in given]
    return " ".join([*kept, example])


def _refreshed(example, job, usual, workshop):
    """The right side of the arrow as the run shows it now."""
    command = _whole(example["written"], usual)
    lines = excerpt.unwrapped(workshop.shown_by("varmodel run -", stdin=job.replace("COMMAND", command)))
    at = 0

    def again(span):
        nonlocal at
        text, place = excerpt.line_again(re.sub(r"\s+", " ", span[1]), lines, at)
        at = place + 1
        return span[0] if text == re.sub(r"\s+", " ", span[1]) else f"`{text}`"

    return re.sub(r"`([^`]+)`", again, example["found"])


def refreshed(text, workshop, workers):
    """The page with its examples as the program shows them, and what could not be found again."""
    job, usual = JOB.search(text), USUAL.search(text)
    if job is None or usual is None:
        return text, []
    examples = list(EXAMPLE.finditer(text))
    problems = []

    def run(example):
        try:
            return _refreshed(example, job[1], usual[1], workshop)
        except excerpt.Lost as lost:
            problems.append(f"{example['written']}: {lost}")
            return example["found"]

    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        found = list(pool.map(run, examples))
    for example, now in reversed(list(zip(examples, found))):
        text = text[: example.start("found")] + now + text[example.end("found") :]
    return text, problems
