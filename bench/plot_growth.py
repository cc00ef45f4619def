#!/usr/bin/python3
"""plot_growth.py CSV PICTURE: time over MAXLAG and over T, each beside the growth of the engine's own work."""

import csv
import sys

import matplotlib

matplotlib.use("svg")
matplotlib.rcParams["svg.hashsalt"] = "growth"
import matplotlib.pyplot as plt  # noqa: E402


def points(rows, what):
    chosen = [(int(row["value"]), float(row["seconds"])) for row in rows if row["what"] == what]
    return [x for x, _ in chosen], [y for _, y in chosen]


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    figure, (over_lags, over_length) = plt.subplots(1, 2, figsize=(9, 3.6))
    lags, seconds = points(rows, "P")
    # Multiplications a row: the first block row of cross-products, the residuals of every lag, their covariances.
    series = 10
    work = [series * series * (p + 1) + sum(series * (1 + series * q) for q in range(1, p + 1)) + p * series ** 2 / 2
            for p in lags]
    over_lags.plot(lags, seconds, "o-", label="measured")
    over_lags.plot(lags, [w * seconds[-1] / work[-1] for w in work], "--", label="work")
    over_lags.set(xlabel="MAXLAG (T = 50,000, K = 10)", ylabel="seconds")
    lengths, seconds = points(rows, "T")
    over_length.loglog(lengths, seconds, "o-", label="measured")
    over_length.loglog(lengths, [t * seconds[-1] / lengths[-1] for t in lengths], "--", label="work")
    over_length.set(xlabel="T (K = 5, MAXLAG = 8)", ylabel="seconds")
    for axes in (over_lags, over_length):
        axes.legend()
        axes.grid(alpha=0.3)
    figure.tight_layout()
    figure.savefig(sys.argv[2], metadata={"Date": None})
    for what in ("P", "T"):
        print(what, " ".join(f"{x}:{y:.4f}" for x, y in zip(*points(rows, what))))


if __name__ == "__main__":
    main()
