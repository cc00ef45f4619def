#!/usr/bin/env python3
"""Correct digits of coefficients and standard errors, of the plain loops and of the engine.

Reads what accuracy_cases prints and solves every case anew with 150 decimal digits. A digit count is that of the worst
coefficient (or standard error) of a case, -log10 of its relative error, at most 16. Exits with 1 when the engine is
worse than the plain loops somewhere by more than a tenth of a digit.
"""

import decimal
import sys

decimal.getcontext().prec = 150
Number = decimal.Decimal


def exact(hexadecimal):
    return Number(float.fromhex(hexadecimal))


def read_cases(lines):
    cases = []
    for line in lines:
        key, *rest = line.split()
        if key == "case":
            cases.append({"lag": int(rest[0]), "name": " ".join(rest[1:]), "endogenous": [], "exogenous": []})
        elif key in ("endogenous", "exogenous"):
            cases[-1][key].append([exact(x) for x in rest])
        elif key == "refused":
            cases[-1][key] = " ".join(rest)
        else:
            cases[-1][key] = [exact(x) for x in rest]
    return cases


def design(case):
    lag, endogenous = case["lag"], case["endogenous"]
    return [[Number(1)] + [series[t - l] for l in range(1, lag + 1) for series in endogenous]
            + [series[t] for series in case["exogenous"]] for t in range(lag, len(endogenous[0]))]


def inverse(matrix):
    """Gauss-Jordan with partial pivoting."""
    n = len(matrix)
    rows = [row[:] + [Number(int(i == j)) for j in range(n)] for i, row in enumerate(matrix)]
    for c in range(n):
        pivot = max(range(c, n), key=lambda r: abs(rows[r][c]))
        rows[c], rows[pivot] = rows[pivot], rows[c]
        rows[c] = [x / rows[c][c] for x in rows[c]]
        for r in range(n):
            if r != c and rows[r][c]:
                factor = rows[r][c]
                rows[r] = [x - factor * y for x, y in zip(rows[r], rows[c])]
    return [row[n:] for row in rows]


def dot(a, b):
    return sum((x * y for x, y in zip(a, b)), Number(0))


def solve(case):
    rows = design(case)
    columns = list(zip(*rows))
    k = len(columns)
    inverted = inverse([[dot(columns[i], columns[j]) for j in range(k)] for i in range(k)])
    coefficients, errors = [], []
    for series in case["endogenous"]:
        y = series[case["lag"]:]
        products = [dot(column, y) for column in columns]
        b = [dot(row, products) for row in inverted]
        residuals = [value - dot(row, b) for row, value in zip(rows, y)]
        mean = sum(residuals) / len(residuals)
        variance = sum((e - mean) ** 2 for e in residuals) / (len(residuals) - k)
        coefficients += b
        errors += [(variance * inverted[j][j]).sqrt() for j in range(k)]
    return coefficients, errors


def digits(values, truth):
    if not values:
        return float("nan")
    worst = max(abs((v - t) / t) for v, t in zip(values, truth))
    return 16.0 if worst < Number("1e-16") else float(-worst.log10())


def main():
    print(f"{'correct digits of':24s} {'coefficients':>22s} {'standard errors':>22s}")
    print(f"{'':24s} {'plain':>10s} {'engine':>11s} {'plain':>10s} {'engine':>11s}")
    worse = False
    for case in read_cases(sys.stdin):
        if "refused" in case:
            print(f"{case['name']:24s} refused: {case['refused']}")
            continue
        truth = solve(case)
        counts = [digits(case.get(f"{who}_{what}"), values) for what, values in zip(("coefficients", "errors"), truth)
                  for who in ("plain", "engine")]
        print(f"{case['name']:24s} {counts[0]:10.1f} {counts[1]:11.1f} {counts[2]:10.1f} {counts[3]:11.1f}")
        worse |= counts[1] < counts[0] - 0.1 or counts[3] < counts[2] - 0.1
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main())
