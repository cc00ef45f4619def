#!/usr/bin/env python3
"""Seeds single faults into a copy of the tree and says which of them no test notices.

usage: seed_faults.py [TABLE|SOURCE ...]      tables of scripts/faults by name, or source files; all when none is named

A table's section names a source file and the test programs that should notice its faults; each line after it is one
fault, the text to find (it must stand there exactly once) and what replaces it:

    [procedures/varmodel/driver/varmodel_entry.cpp: recording_test]
    kProcedureKind = 10 ==> kProcedureKind = 11

In both texts ↵ stands for a line end. The copy lies in build/seed-faults with a build folder of its own, so that a fault costs one or two compilations; the tree
itself is never touched. A second run in the same tree waits for the first. Prints survivors, faults that the compiler
refuses, and faults whose text is no longer there; exits with 1 when fewer than 90 % of the faults were caught or a
table needs care.
"""

import fcntl
import os
import pathlib
import re
import shutil
import subprocess
import sys
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLES = ROOT / "scripts" / "faults"
COPY = ROOT / "build" / "seed-faults"
BUILD = COPY / "build" / "release"
GOAL = 0.9
SECONDS_A_PROGRAM = 120  # a fault may make a program run for ever; that is noticed too
SECTION = re.compile(r"\[(.+): (.+)\]")


@dataclass
class Fault:
    source: str
    programs: list[str]
    old: str
    new: str
    verdict: str = ""

    def __str__(self):
        return f"{self.source}: {self.old} ==> {self.new}".replace("\n", "↵")


def read_table(path):
    source, programs = "", []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if match := SECTION.fullmatch(line.strip()):
            source, programs = match[1], match[2].split()
        elif " ==>" in line and source:
            old, new = line.split(" ==>", 1)
            yield Fault(source, programs, *(text.replace("↵", "\n") for text in (old, new.removeprefix(" "))))
        else:
            sys.exit(f"{path}:{number}: neither [SOURCE: PROGRAM ...] nor OLD ==> NEW")


def chosen_faults(names):
    faults = [fault for path in sorted(TABLES.glob("*.txt")) for fault in read_table(path) if not names
              or path.stem in names or fault.source in names]
    return faults or sys.exit(f"no table or source file of that name; tables: "
                              f"{', '.join(sorted(path.stem for path in TABLES.glob('*.txt')))}")


def copy_tree():
    """Brings the copy up to date; files that are equal keep their time stamp."""
    listed = subprocess.check_output(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT, text=True)
    tracked = {name for name in listed.split("\0") if name and (ROOT / name).is_file()}
    for name in tracked:
        target = COPY / name
        content = (ROOT / name).read_bytes()
        if not target.is_file() or target.read_bytes() != content:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
            shutil.copymode(ROOT / name, target)
    for path in COPY.rglob("*"):
        name = path.relative_to(COPY)
        if path.is_file() and name.parts[0] not in {"build", ".deps", "node_modules"} and str(name) not in tracked:
            path.unlink()
    for fetched in (".deps", "node_modules"):
        if (ROOT / fetched).exists() and not (COPY / fetched).exists():
            (COPY / fetched).symlink_to(ROOT / fetched)


def run(command, **options):
    return subprocess.run(["nice", *command], capture_output=True, text=True, errors="replace", **options)


def build(programs):
    extra = ["varmodel"] if "cli_test" in programs else []
    return run(["cmake", "--build", str(BUILD), "--target", *programs, *extra])


def notices(program):
    try:
        return run([str(BUILD / "tests" / program)], cwd=BUILD, timeout=SECONDS_A_PROGRAM).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def check_without_faults(faults):
    programs = sorted({program for fault in faults for program in fault.programs})
    configured = run(["cmake", "--preset", "release", "-Wno-dev"], cwd=COPY)
    built = configured if configured.returncode else build(programs)
    if built.returncode:
        sys.exit(f"the tree without faults does not build:\n{(built.stdout + built.stderr)[-3000:]}")
    if failing := [program for program in programs if notices(program)]:
        sys.exit(f"these fail without any fault: {' '.join(failing)}")


def first_error(output):
    found = next((line.strip() for line in output.splitlines() if "error" in line.lower()), None)
    return found or sys.exit("a build ended without naming an error: was it killed?")


def verdict_of(fault):
    path = COPY / fault.source
    if not path.is_file():
        return "no such file"
    text = path.read_text(encoding="utf-8")
    if text.count(fault.old) != 1:
        return f"stands there {text.count(fault.old)} times"
    try:
        path.write_text(text.replace(fault.old, fault.new), encoding="utf-8")
        for program in fault.programs:  # the cheapest first; the next is built only when it noticed nothing
            if (built := build([program])).returncode:
                return f"not built: {first_error(built.stdout + built.stderr)}"
            if notices(program):
                return "caught"
        return "survived"
    finally:
        path.write_text(text, encoding="utf-8")


def report(faults):
    judged = [fault for fault in faults if fault.verdict in {"caught", "survived"}]
    for fault in faults:
        if fault.verdict != "caught":
            print(f"{fault.verdict}: {fault}")
    caught = sum(fault.verdict == "caught" for fault in judged)
    print(f"{caught} of {len(judged)} faults caught")
    return 0 if len(judged) == len(faults) and caught >= GOAL * len(judged) else 1


def main():
    faults = chosen_faults(sys.argv[1:])
    COPY.mkdir(parents=True, exist_ok=True)
    with open(COPY.with_suffix(".lock"), "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        copy_tree()
        check_without_faults(faults)
        for number, fault in enumerate(sorted(faults, key=lambda one: one.source), 1):
            fault.verdict = verdict_of(fault)
            print(f"[{number}/{len(faults)}] {fault.verdict}: {fault}", file=sys.stderr, flush=True)
    return report(faults)


if __name__ == "__main__":
    sys.exit(main())
