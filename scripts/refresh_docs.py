#!/usr/bin/env python3
"""Rewrites what the pages show of the program's output from runs of the program.

usage: scripts/refresh_docs.py [--check] [--others] [--build DIR] [PAGE ...]

Three kinds of places are kept true: sessions (blocks that begin with "$ "), examples (lines "- `command` → `result`")
and the table of options. Excerpts stay excerpts: each is found again by the lines it begins and ends with. With
--check nothing is written; every difference is shown and the exit code is 1. With --others the sessions of other
programs (statsmodels, gretl) run, too.
"""

import argparse
import difflib
import pathlib
import sys

from docs import examples, measured, option_table, sessions
from docs.workshop import ROOT, Workshop

PAGES = ["README.md", "docs/tutorial.md", "docs/program.md", "docs/varmodel.md", "docs/vardynamics.md",
         "docs/data.md", "docs/coming-from.md"]


def refreshed(page, build, others):
    """The page's text as it should be, and what needs a person."""
    workshop = Workshop(build)
    try:
        text, lost = sessions.refreshed((ROOT / page).read_text(encoding="utf-8"), workshop, others)
        text, more = examples.refreshed(text, workshop, workers=2)
        return option_table.refreshed(text, workshop), lost + more + measured.problems(text)
    finally:
        workshop.close()


def report(page, before, after, lost):
    for problem in lost:
        print(f"{page}: {problem}")
    difference = difflib.unified_diff(before.splitlines(True), after.splitlines(True), page, "the program", n=1)
    sys.stdout.writelines(difference)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("pages", nargs="*", metavar="PAGE")
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--others", action="store_true")
    parser.add_argument("--build", default=ROOT / "build/release", type=pathlib.Path)
    options = parser.parse_args()
    stale = False
    for page in options.pages or PAGES:
        before = (ROOT / page).read_text(encoding="utf-8")
        after, lost = refreshed(page, options.build, options.others)
        report(page, before, after, lost)
        stale = stale or bool(lost) or (options.check and before != after)
        if not options.check:
            (ROOT / page).write_text(after, encoding="utf-8")
    if stale and options.check:
        print("The pages differ from what the program shows. scripts/refresh_docs.py rewrites them.")
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
