#!/usr/bin/python3
"""Whole-process time and memory on the simulated workloads: this program, gretl and statsmodels.

process_bench.py BIN_DIR [example]: the directory of varmodel and workload_file. Every program reads the data from a file, chooses
among lags 1..P by three criteria and fits P. Prints medians of processor time (user + system, one thread each), elapsed
time and ratios. This is Debian's python3, for its statsmodels. With "example" the example alone, through `fit` and `analyze`.
"""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

# name, file ending, K, P, runs, peers
WORKLOADS = [("w1", "csv", 3, 8, 15, True), ("w2", "csv", 8, 25, 9, True), ("w3", "csv", 20, 10, 3, True),
             ("w5", "parquet", 5, 4, 3, False)]

JOB = """command = '''
VARMODEL
  /MODEL ENDOGENOUS={names} LAG=[AIC BIC HQIC] MINLAG=1 MAXLAG={lags}
  /METHOD TYPE=[OLS]
  /MODELSTATISTICS MODELFIT=[GOODFIT PARAMETERS]
'''
[data]
source = "{file}"
"""
GRETL = """set verbose off
open "{file}" --quiet
setobs 1 1 --time-series
list y = {names}
var {lags} y --lagselect
var {lags} y
"""
STATSMODELS = """import pandas
from statsmodels.tsa.api import VAR
model = VAR(pandas.read_csv("{file}"))
print(model.select_order({lags}).summary())
print(model.fit({lags}).summary())
"""
ROOT = pathlib.Path(__file__).resolve().parent.parent
ENVIRONMENT = dict(os.environ, OMP_NUM_THREADS="1", OPENBLAS_NUM_THREADS="1")


def measure(command):
    """Processor seconds, elapsed seconds and peak MB of one run."""
    start = time.perf_counter()
    process = subprocess.Popen(command, env=ENVIRONMENT, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.perf_counter() - start
    if status != 0:
        raise SystemExit(f"{command} failed with status {status}")
    return usage.ru_utime + usage.ru_stime, elapsed, usage.ru_maxrss / 1024


def commands(program, work, name, ending, count, lags, peers):
    file = work / f"{name}.{ending}"
    subprocess.run([program.parent / "workload_file", name, file], check=True)
    fields = {"file": file, "names": " ".join(f"y{i}" for i in range(1, count + 1)), "lags": lags}
    for text, suffix in ((JOB, "toml"), (GRETL, "inp"), (STATSMODELS, "py")):
        (work / f"{name}.{suffix}").write_text(text.format(**fields))
    result = {"varmodel": [program, "run", "-q", work / f"{name}.toml"]}
    if peers:
        result["gretl"] = ["gretlcli", "-b", work / f"{name}.inp"]
        result["statsmodels"] = ["/usr/bin/python3", work / f"{name}.py"]
    return result


def compare_commands(program, work):
    """The example through both procedures, as options of the program ask for them."""
    options = [ROOT / "examples/us_macro_quarterly.csv", "--start", "year=1959", "quarter=1", "--predict", "8",
               "--endogenous", "realgdp", "realcons", "realinv"]
    print(f"{'':12s} {'processor ms':>13s} {'elapsed ms':>11s}")
    for name in ("fit", "analyze"):
        for ending in ([], ["--html", work / "report.html"]):
            runs = [measure([program, name, *options, *ending]) for _ in range(25)]
            processor, elapsed, _ = (1000 * statistics.median(column) for column in zip(*runs))
            print(f"{name + (' --html' if ending else ''):16s} {processor:9.1f} {elapsed:11.1f}", flush=True)


def main():
    program = pathlib.Path(sys.argv[1]).resolve() / "varmodel"
    if sys.argv[2:] == ["example"]:
        with tempfile.TemporaryDirectory() as directory:
            return compare_commands(program, pathlib.Path(directory))
    print(f"{'':4s} {'program':12s} {'processor s':>12s} {'elapsed s':>10s} {'peak MB':>8s} {'times ours':>11s}")
    with tempfile.TemporaryDirectory() as directory:
        for name, ending, count, lags, runs, peers in WORKLOADS:
            ours = None
            for who, command in commands(program, pathlib.Path(directory), name, ending, count, lags, peers).items():
                measured = [measure(command)]
                measured += [measure(command) for _ in range(runs - 1 if measured[0][1] < 5 else 0)]
                processor, elapsed, peak = (statistics.median(column) for column in zip(*measured))
                ours = ours or processor
                print(f"{name:4s} {who:12s} {processor:12.3f} {elapsed:10.3f} {peak:8.0f} {processor / ours:11.1f}",
                      flush=True)


if __name__ == "__main__":
    main()
