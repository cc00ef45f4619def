#!/usr/bin/env python3
"""Checks that includes go one way: each folder may include only itself and the folders listed for it.

Prints every offending line as FILE:LINE and exits with 1 when there is one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# folder -> folders that it may include besides itself
ALLOWED = {
    "host": set(),
    "data": {"host"},
    "syntax": {"data", "host"},
    "algo": {"syntax", "data", "host"},
    "output": {"algo", "syntax", "data", "host"},
    "save": {"algo", "syntax", "data", "host"},
    "driver": {"output", "save", "algo", "syntax", "data", "host"},
    "workbench": {"host"},
}
# Files of algo/ that orchestrate; all others are numerical and include only algo/, the standard library, Boost, Eigen.
ALGO_ORCHESTRATION = re.compile(r"^(var_algo.*|results_summary)\.(h|cpp)$")
# What the procedure may take from outside: its three libraries and the C++ standard library, nothing of POSIX.
OUTSIDE_PROCEDURE = re.compile(r"^(boost/math/|boost/version|Eigen/|rapidjson/)|^[a-z_]+$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def problems(path: pathlib.Path, folder: str):
    numerical = folder == "algo" and not ALGO_ORCHESTRATION.match(path.name)
    allowed = set() if numerical else ALLOWED[folder]
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        quote, target = match.groups()
        if quote == '"':
            top = target.split("/")[0]
            if top != folder and top not in allowed:
                yield f"{path.relative_to(ROOT)}:{number}: {folder} must not include {target}"
        elif folder != "workbench" and not OUTSIDE_PROCEDURE.match(target):
            yield f"{path.relative_to(ROOT)}:{number}: the procedure must not include <{target}>"


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
