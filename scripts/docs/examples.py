"""Lines such as "- `/FORECAST HORIZON=1` → `what the run shows`": each is put into the job that its page prints.

The job is the block of TOML that holds the word COMMAND: the command of the page's line "Command: `…`", to which an
example is added, or in which it takes the place of the subcommand of its name. Several marked texts behind one
arrow stand in the output in this order; "…" in one leaves out words.

Examples that need no run of their own share one, since most of a run is its start: all but those that save a file or
that the parser refuses, which would keep the others from running.
"""

import collections
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


def _outputs(lines):
    """What each command of a run showed, by its number."""
    outputs, number = collections.defaultdict(list), None
    for line in lines:
        heading = re.fullmatch(r"Command (\d+)", line)
        message = re.match(r"(\w+): command (\d+): ", line)
        if heading:
            number = int(heading[1])
        elif message:
            outputs[int(message[2])].append(f"{message[1]}: {line[message.end():]}")
        else:
            outputs[number].append(line)
    return outputs


def _shown(commands, job, workshop):
    """The lines of each command, run together or, where one is refused, each by itself."""
    text = job.replace("COMMAND", ".\n".join(commands))
    lines = excerpt.unwrapped(workshop.shown_by("varmodel run -", stdin=text))
    if len(commands) == 1:
        return [lines]
    outputs = _outputs(lines)
    numbers = range(1, len(commands) + 1)
    if all(number in outputs for number in numbers):
        return [outputs[number] for number in numbers]
    return [_shown([command], job, workshop)[0] for command in commands]


def _refreshed(found, lines):
    """The right side of the arrow as the run shows it now."""
    at = 0

    def again(span):
        nonlocal at
        written = re.sub(r"\s+", " ", span[1])
        text, place = excerpt.line_again(written, lines, at)
        at = place + 1
        return span[0] if text == written else f"`{text}`"

    return re.sub(r"`([^`]+)`", again, found)


def _needs_a_run(example):
    return "/SAVE" in example["written"] or example["found"].startswith(" `error: …")


def refreshed(text, workshop, workers):
    """The page with its examples as the program shows them, and what could not be found again."""
    job, usual = JOB.search(text), USUAL.search(text)
    if job is None or usual is None:
        return text, []
    examples = list(EXAMPLE.finditer(text))
    alone = [[example] for example in examples if _needs_a_run(example)]
    together = [example for example in examples if not _needs_a_run(example)]
    groups = [group for group in (together[::2], together[1::2], *alone) if group]

    def run(group):
        return _shown([_whole(example["written"], usual[1]) for example in group], job[1], workshop)

    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        shown = list(pool.map(run, groups))
    problems, found = [], {}
    for group, outputs in zip(groups, shown):
        for example, lines in zip(group, outputs):
            try:
                found[example.start()] = _refreshed(example["found"], lines)
            except excerpt.Lost as lost:
                problems.append(f"{example['written']}: {lost}")
    for example in reversed(examples):
        now = found.get(example.start(), example["found"])
        text = text[: example.start("found")] + now + text[example.end("found") :]
    return text, problems
