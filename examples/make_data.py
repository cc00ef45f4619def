#!/usr/bin/env python3
"""Makes the simulated data of the monthly and the daily example, the same bytes on every run.

monthly_rates.csv  240 months from 2004-01: three stable, cross-related rates in percent; the last two months lack one
                   series, as fresh data do.
daily_demand.csv   730 days from 2023-01-01: electricity demand and price with a weekly rhythm, and temperature.
"""

import datetime
import math
import pathlib
import random

HERE = pathlib.Path(__file__).resolve().parent


def write(name, header, rows):
    lines = [",".join(header)] + [",".join(row) for row in rows]
    (HERE / name).write_text("\n".join(lines) + "\n", encoding="utf-8")


def monthly_rates(count=240):
    noise = random.Random(20040101)
    policy, market, spread = 2.0, 3.0, 1.0
    for month in range(count):
        policy, market, spread = (
            0.1 + 0.95 * policy + 0.02 * spread + noise.gauss(0, 0.12),
            0.3 + 0.20 * policy + 0.75 * market + noise.gauss(0, 0.18),
            0.4 - 0.05 * policy + 0.10 * market + 0.60 * spread + noise.gauss(0, 0.15),
        )
        date = datetime.date(2004 + month // 12, month % 12 + 1, 1).isoformat()
        last = "" if month >= count - 2 else f"{spread:.3f}"
        yield date, f"{policy:.3f}", f"{market:.3f}", last


def daily_demand(count=730):
    noise = random.Random(20230101)
    demand, price = 0.0, 0.0
    for day in range(count):
        date = datetime.date(2023, 1, 1) + datetime.timedelta(days=day)
        warmth = 12 - 9 * math.cos(2 * math.pi * day / 365.25) + noise.gauss(0, 2)
        demand, price = (
            0.70 * demand - 0.05 * price + noise.gauss(0, 8),
            0.10 * demand + 0.60 * price + noise.gauss(0, 5),
        )
        weekly = -20 if date.weekday() >= 5 else 0
        yield date.isoformat(), f"{400 + demand + weekly - 1.5 * warmth:.2f}", f"{80 + price + weekly / 4:.2f}", f"{warmth:.1f}"


if __name__ == "__main__":
    write("monthly_rates.csv", ("month", "policy", "market", "spread"), monthly_rates())
    write("daily_demand.csv", ("date", "demand", "price", "temperature"), daily_demand())
