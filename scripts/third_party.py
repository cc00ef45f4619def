#!/usr/bin/env python3
"""Writes THIRD_PARTY.md: name, version and licence of everything that the program and its reports contain.

Versions and licences come from the installed packages (Debian's, npm's), DuckDB's version from scripts/setup.sh. Texts
that no package has, and what DuckDB's library holds in its turn, stand in scripts/third_party/.
With --check nothing is written: tells what is out of date and exits with 1. On another system than the one that
THIRD_PARTY.md names, Debian's packages have other versions; then only names and licences are compared.
"""

import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TEXTS = ROOT / "scripts" / "third_party"
TARGET = ROOT / "THIRD_PARTY.md"

# name, Debian package, licence, which Files paragraphs of its copyright file concern what is used of it.
DEBIAN = [
    ("Boost.Math", "libboost1.74-dev", "BSL-1.0", None),
    ("CLI11", "libcli11-dev", "BSD-3-Clause", ["*"]),
    ("Eigen", "libeigen3-dev", "MPL-2.0", ["*"]),
    ("fmt", "libfmt-dev", "MIT", ["*"]),
    ("minizip", "libminizip-dev", "Zlib", ["*"]),
    ("pugixml", "libpugixml-dev", "MIT", ["*", "src/pugiconfig.hpp"]),
    ("RapidJSON", "rapidjson-dev", "MIT", ["*"]),
    ("toml++", "libtomlplusplus-dev", "MIT", ["*", "include/toml++/impl/unicode.h"]),
    ("utf8proc", "libutf8proc-dev", "MIT AND Unicode", ["*", "utf8proc_data.c"]),
    ("zlib", "zlib1g-dev", "Zlib", ["*"]),
]
# What the bundles hold: these packages and what they depend on, but for what only their command lines need.
REPORT = ["vega", "vega-lite", "vega-interpreter"]
COMMAND_LINE_ONLY = {"yargs", "commander", "iconv-lite", "rw", "vega-typings", "@types/estree", "@types/geojson"}


def paragraphs(package: str) -> list[dict[str, str]]:
    """The copyright file in parts: field -> text with its line ends."""
    text = pathlib.Path(f"/usr/share/doc/{package}/copyright").read_text(encoding="utf-8", errors="replace")
    found = []
    for block in re.split(r"\n\s*\n(?=\S)", text):
        fields = re.findall(r"^([A-Za-z-]+):((?:.*\n?)(?:[ \t].*\n?)*)", block, re.M)
        found.append(dict(fields))
    return found


def unfolded(text: str) -> str:
    """A field's lines without their indent; a point alone is an empty line."""
    lines = ["" if line.strip() == "." else line.rstrip() for line in text.strip("\n").splitlines()]
    indent = min((len(line) - len(line.lstrip()) for line in lines if line.strip()), default=0)
    return "\n".join(line[indent:] for line in lines)


def licence_body(parts, field: str) -> str:
    name, _, body = field.strip("\n").partition("\n")
    if not body:
        for part in parts:
            head, _, text = part.get("License", "").strip("\n").partition("\n")
            if "Files" not in part and head.strip().lower() in {name.strip().lower(), name.strip().lower() + "-2"} and text:
                body = text
    return unfolded(body)


def debian_text(package: str, files) -> str:
    if files is None:
        return "Copyright the authors named in each file\n\n" + (TEXTS / "BSL-1.0.txt").read_text()
    parts = paragraphs(package)
    used = [part for part in parts if set(part.get("Files", "").split()) & set(files)]
    text, licences = "", []
    for part in used:
        text += "\n".join(line.strip() for line in part["Copyright"].strip().splitlines()) + "\n"
        names = part["License"].strip("\n").partition("\n")[0].strip()
        for one in ([part["License"]] if "\n" in part["License"].strip() else names.split(" and ")):
            body = licence_body(parts, one)
            if body not in licences:
                licences.append(body)
    for body in licences:
        common = re.search(r"/usr/share/common-licenses/([\w.-]*\w)", body)
        text += "\n" + (pathlib.Path(common.group(0)).read_text() if common else body) + "\n"
    if "MPL" in "".join(part["License"] for part in used):
        text = f"Used unchanged; the source is that of Debian's package {package}.\n\n" + text
    return text


def debian_version(package: str) -> str:
    """Upstream's part of the version."""
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, text=True, check=True)
    upstream = re.sub(r"^\d+:|-[^-]*$", "", shown.stdout)
    return re.sub(r"[+~](ds|dfsg|really).*|\.dfsg$", "", upstream)


def npm_packages() -> dict[str, dict]:
    found: dict[str, dict] = {}
    waiting = list(REPORT)
    while waiting:
        name = waiting.pop()
        if name in found or name in COMMAND_LINE_ONLY:
            continue
        found[name] = json.loads((ROOT / "node_modules" / name / "package.json").read_text())
        waiting += found[name].get("dependencies", {})
    return dict(sorted(found.items()))


def npm_text(name: str) -> str:
    files = sorted((ROOT / "node_modules" / name).glob("LICEN[CS]E*"))
    if not files:
        raise SystemExit(f"third_party: node_modules/{name} has no licence")
    return files[0].read_text().replace("\r\n", "\n").strip() + "\n"


def block(title: str, text: str) -> str:
    return f"### {title}\n\n```\n{text.strip()}\n```\n\n"


def report_part() -> tuple[list[str], str]:
    rows, texts = [], {}
    for name, facts in npm_packages().items():
        rows.append(f"| {name} | {facts['version']} | {facts['license']} | in every report with charts |")
        texts.setdefault(npm_text(name), []).append(f"{name} {facts['version']}")
    return rows, "".join(block(", ".join(names), text) for text, names in texts.items())


def unicode_text() -> str:
    parts = paragraphs("libutf8proc-dev")
    return licence_body(parts, "Unicode")


def duckdb_part(version: str) -> str:
    head, *lines = (TEXTS / "duckdb.txt").read_text(encoding="utf-8").splitlines()
    if version not in head:
        raise SystemExit(f"third_party: scripts/third_party/duckdb.txt tells of another version than {version}: look "
                         "through third_party/ of the sources and bring it up to date")
    mit = (TEXTS / "MIT.txt").read_text()
    out = block(f"DuckDB {version}", "Copyright 2018-2025 Stichting DuckDB Foundation\n\n" + mit)
    out += "Its library holds, each under the licence whose text follows:\n\n| part | licence | copyright |\n|---|---|---|\n"
    licences = set()
    for line in lines:
        part, licence, copyright_ = (cell.strip() for cell in line.split("|"))
        out += f"| {part} | {licence} | {copyright_} |\n"
        licences.add(licence)
    common = {"Apache-2.0": pathlib.Path("/usr/share/common-licenses/Apache-2.0").read_text(),
              "Zlib": licence_body(paragraphs("libminizip-dev"), "zlib"), "Unicode": unicode_text()}
    for licence in sorted(licences):
        out += "\n" + block(licence, common.get(licence) or (TEXTS / f"{licence}.txt").read_text()).rstrip() + "\n"
    return out + "\n"


def system() -> str:
    facts = dict(re.findall(r'^(\w+)="?([^"\n]*)', pathlib.Path("/etc/os-release").read_text(), re.M))
    return f"{facts.get('ID', 'unknown')} {facts.get('VERSION_ID', '')}".strip()


def third_party() -> str:
    duckdb = re.search(r"fetch duckdb@([\d.]+)", (ROOT / "scripts" / "setup.sh").read_text()).group(1)
    report_rows, report_texts = report_part()
    rows = [f"| {name} | {debian_version(package)} | {licence} | in the program |"
            for name, package, licence, _ in DEBIAN]
    rows.append(f"| DuckDB | {duckdb} | MIT | a library beside the program |")
    texts = "".join(block(f"{name} {debian_version(package)}", debian_text(package, files))
                    for name, package, _, files in DEBIAN)
    table = "\n".join(["| name | version | licence | where |", "|---|---|---|---|", *rows, *report_rows])
    return (f"# Third-party software\n\nWhat varmodel contains of others, and the licences that it comes under. Made by "
            f"`scripts/third_party.py` from the packages\nthat the program is built with, on {system()}; the program "
            f"itself is under the licence in LICENSE.\n\n{table}\n\n## The program\n\n{texts}## DuckDB\n\n"
            f"{duckdb_part(duckdb)}## Reports\n\n{report_texts}").rstrip() + "\n"


def comparable(text: str, same_system: bool) -> str:
    if same_system:
        return text
    return "\n".join(re.sub(r"^\| ([^|]+) \|[^|]*\| ([^|]+) \|.*", r"\1: \2", line)
                     for line in text.splitlines() if line.startswith("| "))


def main() -> int:
    made = third_party()
    if "--check" not in sys.argv[1:]:
        TARGET.write_text(made, encoding="utf-8")
        return 0
    kept = TARGET.read_text(encoding="utf-8")
    same = f"on {system()};" in kept
    if comparable(kept, same) == comparable(made, same):
        print("THIRD_PARTY.md is up to date")
        return 0
    lines = set(kept.splitlines())
    print("THIRD_PARTY.md is out of date: run scripts/third_party.py. New there:")
    print("\n".join(line for line in made.splitlines() if line not in lines))
    return 1


if __name__ == "__main__":
    sys.exit(main())
