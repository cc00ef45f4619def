#!/usr/bin/env python3
"""Runs the program with one call to the system failing, and says which failures it does not survive.

usage: program_failures.py PROGRAM FAILING_CALLS [--most N] [KIND ...]

FAILING_CALLS is the library of failing_calls.cpp, --most the number of failures tried a kind (default 12: the first
half, and half spread over the rest; 0: all). A run survives when it ends with 0 to 4, with a reason unless it is 0;
when each of its six outputs is either the one that stood there before or the one that an undisturbed run writes, all
of the latter when it ends with 0, while page and record may tell of the failure, and metadata are those of their cases or
gone; and when nothing else is left.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile

DATA = pathlib.Path(__file__).resolve().parents[2] / "examples" / "us_macro_quarterly.csv"
JOB = f'''command = """VARMODEL /MODEL ENDOGENOUS=realgdp realcons LAG=[AIC] MAXLAG=2 /METHOD TYPE=[OLS]
  /MODELSTATISTICS MODELFIT=[PARAMETERS RSQUARE FORECASTS TNORM] /SERIESPLOT PLOT=[TIMESERIES FORECAST]
  /SAVE FILE="model.csv" PREDICTED.
VARDYNAMICS /MODEL ENDOGENOUS=realgdp realcons MAXLAG=2 /STABILITY /FORECAST /IMPULSE /PLOT TYPE=[FORECAST]
  /SAVE FILE="dynamics.csv" FORECASTS."""
[data]
source = '{DATA}'
[predict]
thru = 207
'''
OUTPUTS = ["page.html", "record.json", "model.csv", "model.csv.meta.json", "dynamics.csv", "dynamics.csv.meta.json"]
KINDS = ["allocate", "write", "short_write", "rename", "fsync", "close", "open", "read", "make_folder"]
METADATA = ".meta.json"
OLD = b"of an earlier run\n"


def run(options, kind, n, on):
    """The exit code, the standard error stream, the outputs, other files left, and how many calls there were."""
    with tempfile.TemporaryDirectory(prefix="varmodel-failures-") as name:
        folder = pathlib.Path(name, "outputs")
        folder.mkdir()
        (folder / "job.toml").write_text(JOB, encoding="utf-8")
        for output in OUTPUTS:
            (folder / output).write_bytes(OLD)
        plan = {"LD_PRELOAD": options.library, "FAILING_CALL": kind, "FAILING_AT": str(n),
                "FAILING_COUNT": f"{name}/count"} | ({"FAILING_ON": "1"} if on else {})
        ended = subprocess.run(
            [options.program, "run", "job.toml", "-q", "--html", "page.html", "--json", "record.json"], cwd=folder,
            env=os.environ | plan, capture_output=True, timeout=120)
        count = pathlib.Path(name, "count")
        return (ended.returncode, ended.stderr.decode(errors="replace"),
                {output: (folder / output).read_bytes() for output in OUTPUTS if (folder / output).exists()},
                sorted(path.name for path in folder.iterdir() if path.name not in [*OUTPUTS, "job.toml"]),
                int(count.read_text()) if count.exists() else 0)


def is_gone_metadata(name, files):
    return name.endswith(METADATA) and name not in files


def is_whole(name, content):
    if name == "record.json":
        try:
            return isinstance(json.loads(content), dict)
        except ValueError:
            return False
    return name == "page.html" and content.startswith(b"<!DOCTYPE html>") and content.rstrip().endswith(b"</html>")


def fault_of(ended, whole, on):
    """Why a disturbed run does not count as survived; None when it does."""
    code, errors, files, left, _ = ended
    if code not in range(5):
        return f"ended with {code}: {errors[-300:]}"
    if code != 0 and "error: " not in errors:
        return f"ended with {code} and no reason: {errors[-300:]!r}"
    damaged = [name for name in OUTPUTS if files.get(name) not in (whole[name], OLD)
               and not (code != 0 and (is_whole(name, files.get(name, b"")) or is_gone_metadata(name, files)))]
    damaged += [name for name in OUTPUTS if name.endswith(METADATA) and name in files
                and (files[name] == OLD) != (files.get(name.removesuffix(METADATA)) == OLD)]
    missing = [name for name in OUTPUTS if code == 0 and files.get(name) != whole[name]]
    if damaged or missing:
        return f"ended with {code}, damaged: {damaged}, not written: {missing}"
    return f"left {left}" if left and not on else None


def chosen(count, most):
    if most == 0 or count <= most:
        return range(1, count + 1)
    first = most // 2
    rest = count - first
    return sorted({*range(1, first + 1), *(first + 1 + k * rest // (most - first) for k in range(most - first))})


def try_kind(options, kind, pool):
    code, errors, whole, left, count = run(options, kind, 0, False)
    if code != 0 or left or count == 0 or OLD in whole.values():
        sys.exit(f"{kind}: the undisturbed run ended with {code}, {count} calls, left {left}: {errors}")
    plans = [(n, on) for n in chosen(count, options.most) for on in (False, True)]
    ends = pool.map(lambda plan: fault_of(run(options, kind, *plan), whole, plan[1]), plans)
    faults = [f"{kind} {n}{' and all after' if on else ''}: {fault}" for (n, on), fault in zip(plans, ends) if fault]
    print(f"{kind}: {count} calls, {len(plans)} runs, {len(faults)} not survived")
    return faults


def main():
    parser = argparse.ArgumentParser(usage=__doc__.split("usage: ")[1])
    parser.add_argument("program")
    parser.add_argument("library")
    parser.add_argument("kinds", nargs="*", default=KINDS)
    parser.add_argument("--most", type=int, default=12)
    options = parser.parse_intermixed_args()
    options.program, options.library = os.path.abspath(options.program), os.path.abspath(options.library)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        faults = [fault for kind in options.kinds for fault in try_kind(options, kind, pool)]
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
