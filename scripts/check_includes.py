#!/usr/bin/env python3
"""Checks that includes go one way: each folder may include only itself and the folders listed for it.

Prints every offending line as FILE:LINE and exits with 1 when there is one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

C = "procedures/common"
V = "procedures/varmodel/"
D = "procedures/vardynamics/"
# folder -> folders that it may include besides itself
ALLOWED = {
    "host": set(),
    "engine/arithmetic": set(),
    "engine/linear_algebra": {"engine/arithmetic"},
    "engine/regression": {"engine/arithmetic", "engine/linear_algebra"},
    "engine/diagnostics": {"engine/arithmetic", "engine/linear_algebra"},
    "engine/dynamics": {"engine/arithmetic", "engine/linear_algebra", "engine/regression", "engine/diagnostics"},
    C: {"host"},
    V + "data": {C, "host"},
    V + "syntax": {V + "data", C, "host"},
    V + "algo": {V + "syntax", V + "data", C, "host", "engine"},
    V + "output": {V + "algo", V + "syntax", V + "data", C, "host", "engine"},
    V + "save": {V + "algo", V + "syntax", V + "data", C, "host"},
    V + "driver": {V + "output", V + "save", V + "algo", V + "syntax", V + "data", C, "host"},
    D + "data": {C, "host"},
    D + "syntax": {D + "data", C, "host"},
    D + "analysis": {D + "syntax", D + "data", C, "engine"},
    D + "output": {D + "analysis", D + "syntax", D + "data", C, "host", "engine"},
    D + "save": {D + "analysis", D + "syntax", D + "data", C, "host", "engine"},
    D + "driver": {D + "output", D + "save", D + "analysis", D + "syntax", D + "data", C, "host"},
    "workbench": {"host"},
}
# What the numbers and the procedures may take from outside: their libraries and the C++ standard library, nothing of
# POSIX.
OUTSIDE_ENGINE = re.compile(r"^(boost/math/|boost/version|Eigen/)|^[a-z_]+$")
OUTSIDE_PROCEDURE = re.compile(r"^rapidjson/|^[a-z_]+$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def within(target: str, folders) -> bool:
    return any(target.startswith(folder + "/") for folder in folders)


def outside_is_allowed(folder: str, target: str) -> bool:
    if folder == "workbench":
        return True
    return bool((OUTSIDE_ENGINE if folder.startswith("engine/") else OUTSIDE_PROCEDURE).match(target))


def problems(path: pathlib.Path, folder: str):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        quote, target = match.groups()
        allowed = within(target, {folder, *ALLOWED[folder]}) if quote == '"' else outside_is_allowed(folder, target)
        if not allowed:
            yield f"{path.relative_to(ROOT)}:{number}: {folder} must not include {target}"


def main() -> int:
    found = []
    files = 0
    for folder in ALLOWED:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in {".h", ".cpp"}:
                files += 1
                found.extend(problems(path, folder))
    print("\n".join(found) if found else f"includes go one way in {files} files")
    return 1 if found or files == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
