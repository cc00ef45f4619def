#!/usr/bin/python3
"""Milliseconds of processor time a bootstrap replication takes statsmodels and gretl: K = 3, p = 4, T = 200, responses to horizon 20.

The series are independent random walks' changes with a little feedback: the time does not depend on the values. gretl
bootstraps one response of the nine at a time, 1,999 replications each.
"""

import os
import pathlib
import resource
import subprocess
import tempfile
import time
import warnings

import numpy
from statsmodels.tsa.api import VAR

warnings.simplefilter("ignore")
LENGTH, LAG, HORIZON = 200, 4, 20


def series() -> numpy.ndarray:
    random = numpy.random.default_rng(1)
    y = numpy.zeros((LENGTH, 3))
    for t in range(1, LENGTH):
        y[t] = 0.4 * y[t - 1] + 0.1 * y[t - 1][::-1] + random.standard_normal(3)
    return y


def statsmodels_time(y: numpy.ndarray, replications: int = 200) -> float:
    result = VAR(y).fit(LAG)
    start = time.process_time()
    result.irf_errband_mc(orth=True, repl=replications, steps=HORIZON, seed=1)
    return 1000 * (time.process_time() - start) / replications


def gretl_seconds(folder: str, calls: int) -> float:
    """Processor time of a gretl that estimates and asks for so many of the nine responses."""
    script = pathlib.Path(folder, "y.inp")
    lines = [f"matrix m{i}{j} = irf({i}, {j}, 0.05)" for i in range(1, 4) for j in range(1, 4)][:calls]
    script.write_text("\n".join([
        "set verbose off", f"open {folder}/y.csv --quiet", "setobs 1 1 --time-series", f"set horizon {HORIZON + 1}",
        f"var {LAG} a b c --silent", *lines, ""]))
    before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    subprocess.run(["gretlcli", "-b", script], capture_output=True, check=True, env={**os.environ, "OMP_NUM_THREADS": "1"})
    return resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before


def gretl_time(y: numpy.ndarray) -> float:
    with tempfile.TemporaryDirectory() as folder:
        numpy.savetxt(f"{folder}/y.csv", y, delimiter=",", header="a,b,c", comments="", fmt="%.17g")
        return 1000 * (gretl_seconds(folder, 9) - gretl_seconds(folder, 0)) / 1999


if __name__ == "__main__":
    data = series()
    print(f"statsmodels {statsmodels_time(data):.3f} ms a replication")
    print(f"gretl       {gretl_time(data):.3f} ms a replication of all nine responses")
