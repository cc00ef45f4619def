#!/usr/bin/env python3
"""Stands for the program in its tests: does every run twice, by the Linux program and, under Wine, by the Windows one.

Both start from the same files. Exit code, what is shown and every file written must be the same, byte for byte, but for
the separators of paths and for times; in the records of runs (JSON) numbers may differ by 1e-13 of their size, and it is
told which. The test goes on with what the
Linux program did. VARMODEL_TWIN_LOG names the folder of what was found; scripts/windows_check.sh sets all.
"""

import json
import math
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

CLOSE = 1e-13  # p-values and quantiles go through another C library's functions
# A DuckDB database names itself by chance; the tests read those of the Linux program.
FILES_WITH_CHANCE = (".duckdb",)


TIMES = re.compile(rb"^(timing \S+) [0-9.]+$", re.M)


def files_of(folder: Path) -> dict[str, bytes]:
    """What is in the folder; folders, too, as files without bytes."""
    names = {str(path.relative_to(folder)): path for path in sorted(folder.rglob("*"))}
    return {name: path.read_bytes() if path.is_file() else b"" for name, path in names.items()}


def same(linux: bytes, windows: bytes) -> bool:
    def plain(text: bytes) -> bytes:
        return TIMES.sub(rb"\1", text.replace(b"\\\\", b"/").replace(b"\\", b"/"))

    return linux == windows or plain(linux) == plain(windows)


def fill(folder: Path, source: Path) -> None:
    for path in folder.iterdir():
        shutil.rmtree(path) if path.is_dir() and not path.is_symlink() else path.unlink()
    shutil.copytree(source, folder, symlinks=True, dirs_exist_ok=True)


def leaves(value, path=""):
    """Every value of a JSON text beneath its path; items of tables are named by their titles."""
    if isinstance(value, dict):
        name = value.get("title") if isinstance(value.get("title"), str) else ""
        for key, item in value.items():
            yield from leaves(item, f"{path}/{name}{'.' if name else ''}{key}")
    elif isinstance(value, list):
        for place, item in enumerate(value):
            yield from leaves(item, f"{path}/{place}")
    else:
        yield path, value


def close(one, other) -> bool:
    numbers = all(isinstance(value, (int, float)) and not isinstance(value, bool) for value in (one, other))
    return numbers and math.isfinite(one) and abs(one - other) <= CLOSE * abs(one)


def compare_json(name: str, linux: bytes, windows: bytes, found: list) -> None:
    ours, theirs = list(leaves(json.loads(linux))), list(leaves(json.loads(windows)))
    if [path for path, _ in ours] != [path for path, _ in theirs]:
        found.append(f"differs: {name} in its structure")
    for (path, one), (_, other) in zip(ours, theirs):
        if one == other or path.startswith("/run/seconds/") or same(str(one).encode(), str(other).encode()):
            continue
        if close(one, other):
            found.append(f"close: {abs(one - other) / abs(one):.1e} {name} {path} {one!r} {other!r}")
        else:
            found.append(f"differs: {name} {path}: {one!r}, under Windows {other!r}")


def compare_bytes(name: str, linux: bytes, windows: bytes, found: list) -> None:
    if same(linux, windows):
        return
    if linux.lstrip().startswith(b"{") and windows.lstrip().startswith(b"{"):
        try:
            return compare_json(name, linux, windows, found)
        except ValueError:
            pass
    at = next((i for i, (a, b) in enumerate(zip(linux, windows)) if a != b), min(len(linux), len(windows)))
    part = slice(max(0, at - 60), at + 60)
    found.append(f"differs: {name} at byte {at}: {linux[part]!r}, under Windows {windows[part]!r}")


def run(command: list[str], given: bytes) -> subprocess.CompletedProcess:
    return subprocess.run(command, input=given, capture_output=True, check=False)


def main() -> int:
    here, arguments = Path.cwd(), sys.argv[1:]
    given = sys.stdin.buffer.read()
    with tempfile.TemporaryDirectory() as kept:
        before, after = Path(kept, "before"), Path(kept, "after")
        shutil.copytree(here, before, symlinks=True)
        windows = run([os.environ["VARMODEL_WINE"], os.environ["VARMODEL_WINDOWS"], *arguments], given)
        windows_files = files_of(here)
        fill(here, before)
        linux = run([os.environ["VARMODEL_LINUX"], *arguments], given)
        after = files_of(here)
    found: list[str] = []
    if linux.returncode != windows.returncode:
        found.append(f"differs: exit code {linux.returncode}, under Windows {windows.returncode}: {windows.stderr!r}")
    compare_bytes("standard output", linux.stdout, windows.stdout, found)
    compare_bytes("standard error", linux.stderr, windows.stderr, found)
    if after.keys() != windows_files.keys():
        found.append(f"differs: files {sorted(after)}, under Windows {sorted(windows_files)}")
    for name in sorted(after.keys() & windows_files.keys()):
        if not name.endswith(FILES_WITH_CHANCE):
            compare_bytes(name, after[name], windows_files[name], found)
    log = Path(os.environ["VARMODEL_TWIN_LOG"], f"{os.getpid()}.{os.environ.get('TEST_NAME', '')}.txt")
    log.write_text("\n".join([f"run: {' '.join(arguments)}", *found]) + "\n")
    sys.stdout.buffer.write(linux.stdout)
    sys.stderr.buffer.write(linux.stderr)
    return linux.returncode


if __name__ == "__main__":
    sys.exit(main())
