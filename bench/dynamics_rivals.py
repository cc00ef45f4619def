#!/usr/bin/python3
"""Milliseconds a bootstrap replication takes statsmodels and gretl: K = 3, p = 4, T = 200, responses to horizon 20.

The series are independent random walks' changes with a little feedback: the time does not depend on the values. gretl
bootstraps one response of the nine at a time, 1,999 replications each.
"""

import pathlib
import re
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
    start = time.perf_counter()
    result.irf_errband_mc(orth=True, repl=replications, steps=HORIZON, seed=1)
    return 1000 * (time.perf_counter() - start) / replications


def gretl_time(y: numpy.ndarray) -> float:
    with tempfile.TemporaryDirectory() as folder:
        data = pathlib.Path(folder, "y.csv")
        numpy.savetxt(data, y, delimiter=",", header="a,b,c", comments="", fmt="%.17g")
        script = pathlib.Path(folder, "y.inp")
        script.write_text(
            f"set verbose off\nopen {data} --quiet\nsetobs 1 1 --time-series\nset horizon {HORIZON + 1}\n"
            f"var {LAG} a b c --silent\nset stopwatch\n"
            "loop i=1..3\nloop j=1..3\nmatrix m = irf(i, j, 0.05)\nendloop\nendloop\n"
            'printf "seconds %.6f\\n", $stopwatch\n')
        out = subprocess.run(["gretlcli", "-b", script], capture_output=True, text=True, check=True).stdout
    return 1000 * float(re.search(r"^seconds ([0-9.]+)$", out, re.MULTILINE).group(1)) / 1999


if __name__ == "__main__":
    data = series()
    print(f"statsmodels {statsmodels_time(data):.3f} ms a replication")
    print(f"gretl       {gretl_time(data):.3f} ms a replication of all nine responses")
