"""Blocks that begin with "$ ": commands, each followed by what it shows, "..." standing for lines left out."""

import itertools

from . import excerpt

OTHERS = ("/usr/bin/python3 ", "gretlcli ")  # programs that not every machine has: they run only when asked for


def _in_heredoc(command):
    if "<<" not in command[0]:
        return False
    end = command[0].split("<<")[1].split()[0].strip("'")
    return len(command) == 1 or command[-1] != end


def _steps(lines):
    """Pairs of the lines of a command, as printed, and of those below it."""
    steps = []
    for line in lines:
        if line.startswith("$ "):
            steps.append(([line], []))
        elif not steps[-1][1] and (steps[-1][0][-1].endswith("\\") or _in_heredoc(steps[-1][0])):
            steps[-1][0].append(line)
        else:
            steps[-1][1].append(line)
    return steps


def _refreshed_step(command, body, workshop):
    """The body of one command as the program shows it now."""
    printed = [line.rstrip() for line in workshop.shown_by("\n".join(command)[2:])]
    return excerpt.refreshed(excerpt.trimmed([line.rstrip() for line in body]), excerpt.trimmed(printed))


def _refreshed_block(lines, workshop, others, problems):
    result, before = [], []
    for command, body in _steps(lines):
        body = excerpt.trimmed(body)
        if others or not command[0][2:].startswith(OTHERS):
            try:
                body = _refreshed_step(command, body, workshop)
            except excerpt.Lost as lost:
                problems.append(f"{command[0]}: {lost}")
        result += ([""] if before else []) + command + body
        before = body
    return result


def refreshed(text, workshop, others):
    """The page with its sessions as the program shows them, run in order, and what could not be found again."""
    result, problems, lines = [], [], iter(text.split("\n"))
    for line in lines:
        result.append(line)
        if line.startswith("```"):
            block = list(itertools.takewhile(lambda inner: not inner.startswith("```"), lines))
            runs = block and block[0].startswith("$ ")
            result += _refreshed_block(block, workshop, others, problems) if runs else block
            result.append("```")
    return "\n".join(result), problems
