#!/usr/bin/env python3
"""Checks that includes go one way: each folder may include only itself and the folders or headers listed for it.

Prints every offending line as FILE:LINE, every file whose folder no line covers, and every cycle in the table, and
exits with 1 when there is one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# The workbench's folders that know neither a host class nor a running call.
PURE = {f"workbench/{name}" for name in ["base", "dataset", "dates", "language", "document", "charts"]}
# folder -> folders that it may include besides itself
ALLOWED = {
    "host": set(),
    "engine/arithmetic": set(),
    "engine/linear_algebra": {"engine/arithmetic"},
    "engine/regression": {"engine/arithmetic", "engine/linear_algebra"},
    "engine/diagnostics": {"engine/arithmetic", "engine/linear_algebra"},
    "engine/dynamics": {"engine/arithmetic", "engine/linear_algebra", "engine/regression", "engine/diagnostics"},
    "procedures/common": {"host"},
    "workbench/base": {"host/json_document.h"},  # JSON that crosses the edge is set up alike on both sides
    "workbench/dataset": {"workbench/base"},
    "workbench/dates": {"workbench/base", "workbench/dataset"},
    "workbench/language": {"workbench/base", "workbench/dataset"},
    "workbench/document": {"workbench/base", "workbench/dataset"},
    "workbench/charts": {"workbench/base", "workbench/document"},
    "workbench/casefile": {"workbench/base", "workbench/dataset"},
    "workbench/edge": {"host", *PURE, "workbench/casefile"},
    "workbench/render": {*PURE},
    "workbench/report": {*PURE, "workbench/render"},
    "workbench/plots": {*PURE, "workbench/render"},
    "workbench/export": {*PURE, "workbench/render", "workbench/plots"},
    "workbench/commands/common": {*PURE, "workbench/edge", "workbench/render"},
    "workbench/commands/fit": {"workbench/commands/common", "workbench/commands/varmodel", "workbench/commands/vardynamics",
                               *PURE, "workbench/edge", "workbench/render"},
    "workbench/commands": {*PURE},
    "workbench/manual": {"workbench/base"},
    "workbench/cli": {*PURE, "workbench/edge", "workbench/render", "workbench/report", "workbench/plots",
                      "workbench/export", "workbench/manual", "workbench/commands", "engine/diagnostics", "generated/build_facts.h"},
    "workbench": {"workbench/base", "workbench/cli"},
    "bench": {"engine", "procedures", "workbench/edge", "tests/algo", "tests/engine"},
    # A test knows what it tests, the host classes where it needs a host, and fixtures of others.
    "tests/engine": {"engine"},
    "tests/algo": {"engine", "procedures/varmodel", "workbench/edge", "tests/engine"},
    "tests/procedure": {"host", "procedures", "workbench/edge", "workbench/dataset"},
    "tests/vardynamics": {"host", "engine", "procedures", "workbench/edge", "workbench/dates", "workbench/dataset",
                          "tests/engine", "tests/dataset"},
    "tests/output": {"host", "procedures", "tests/document"},
    "tests/recording": {"host", "procedures", "tests/engine"},
    "tests/dataset": {"host", "workbench/base", "workbench/dataset", "workbench/edge"},
    "tests/dates": {"host", "workbench/base", "workbench/dates", "workbench/edge", "tests/dataset"},
    "tests/language": {"host", "workbench/base", "workbench/language", "workbench/edge"},
    "tests/document": {"host", "workbench/base", "workbench/dataset", "workbench/document", "workbench/edge"},
    "tests/casefile": {"host", "workbench/base", "workbench/dataset", "workbench/casefile", "workbench/edge",
                       "tests/dataset"},
    "tests/render": {*PURE, "workbench/render"},
    "tests/charts": {*PURE, "workbench/render", "procedures/common", "tests/render"},
    "tests/report": {*PURE, "workbench/render", "workbench/report", "procedures/common", "tests/render"},
    "tests/plots": {*PURE, "workbench/render", "workbench/plots", "tests/render", "tests/charts"},
    "tests/export": {*PURE, "workbench/render", "workbench/plots", "workbench/export", "procedures/common",
                     "tests/render", "tests/charts"},
    "tests/browser": {"workbench/report"},
    "tests/windows": set(),
    "tests/faults": set(),
    "tests/commands": {*PURE, "workbench/cli", "workbench/commands", "tests/cli", "tests/dataset"},
    "tests/commands/module": {"host"},
    "tests/cli": {"workbench/base", "tests/dataset", "tests/document"},
}
# The layers of every procedure: its own layers below, and what is not its own.
LAYERS = {
    "data": {"host", "procedures/common"},
    "syntax": {"data", "host", "procedures/common", "engine/regression/lag_selection.h"},
    "algo": {"syntax", "data", "host", "procedures/common", "engine"},
    "analysis": {"syntax", "data", "procedures/common", "engine"},
    "output": {"algo", "analysis", "syntax", "data", "host", "procedures/common", "engine"},
    "save": {"algo", "analysis", "syntax", "data", "host", "procedures/common", "engine"},
    "driver": {"output", "save", "algo", "analysis", "syntax", "data", "host", "procedures/common"},
}
for path in ROOT.glob("procedures/*/procedure.cmake"):
    procedure = path.parent.relative_to(ROOT).as_posix()
    for layer, below in LAYERS.items():
        ALLOWED[f"{procedure}/{layer}"] = {f"{procedure}/{name}" if name in LAYERS else name for name in below}
for path in ROOT.glob("workbench/commands/*/*_command.h"):
    ALLOWED[path.parent.relative_to(ROOT).as_posix()] = {"workbench/commands/common", *ALLOWED["workbench/commands/common"]}
ALLOWED["workbench/commands/varmodel"].add("engine/dynamics")  # forecasts in levels
# What the numbers and the procedures may take from outside: their libraries and the C++ standard library, nothing of
# POSIX.
OUTSIDE_ENGINE = re.compile(r"^(boost/math/|boost/version|Eigen/)|^[a-z_]+$")
OUTSIDE_PROCEDURE = re.compile(r"^rapidjson/|^[a-z_]+$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def within(target: str, folders) -> bool:
    return any(target == folder or target.startswith(folder + "/") for folder in folders)


def outside_is_allowed(folder: str, target: str) -> bool:
    if folder.split("/")[0] in {"workbench", "tests", "bench"}:
        return True
    return bool((OUTSIDE_ENGINE if folder.startswith("engine/") else OUTSIDE_PROCEDURE).match(target))


def problems(path: pathlib.Path, folder: str):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        quote, target = match.groups()
        if quote == '"' and (path.parent / target).is_file():
            continue
        allowed = within(target, {folder, *ALLOWED[folder]}) if quote == '"' else outside_is_allowed(folder, target)
        if not allowed:
            yield f"{path.relative_to(ROOT)}:{number}: {folder} must not include {target}"


def owner(path: str):
    """The deepest listed folder that holds the file; None when there is none."""
    return max((folder for folder in ALLOWED if within(path, {folder})), key=len, default=None)


def cycles():
    """Pairs of folders that may include each other, directly or over others."""
    reach = {folder: {other for other in ALLOWED if other != folder and within(other + "/", below)}
             for folder, below in ALLOWED.items()}
    for middle in ALLOWED:
        for folder in ALLOWED:
            if middle in reach[folder]:
                reach[folder] |= reach[middle]
    for folder in ALLOWED:
        if folder in reach[folder]:
            yield f"{folder} may include itself over other folders"


def main() -> int:
    found = list(cycles())
    files = 0
    for top in sorted({folder.split("/")[0] for folder in ALLOWED}):
        for path in sorted((ROOT / top).rglob("*")):
            if path.suffix not in {".h", ".cpp"}:
                continue
            files += 1
            folder = owner(path.relative_to(ROOT).as_posix())
            found.extend(problems(path, folder) if folder else [f"{path.relative_to(ROOT)}: its folder is not listed"])
    print("\n".join(found) if found else f"includes go one way in {files} files")
    return 1 if found or files == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
