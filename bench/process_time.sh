#!/usr/bin/env bash
# Whole-process time of the example, start to finish, beside gretlcli doing the same lag selection and fit.
# Prints the median of 20 runs of each, in milliseconds, and their ratio. Needs: make build, scripts/setup.sh bench.
set -euo pipefail
cd "$(dirname "$0")/.."
program=${1:-build/release/bin/varmodel}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sed "s|@workdir|$PWD/examples|" bench/us_macro.inp >"$work/us_macro.inp"

hyperfine --warmup 3 --runs 20 --shell none --export-json "$work/times.json" --style none \
  "$program run examples/us_macro.toml" "gretlcli -b $work/us_macro.inp" >/dev/null 2>&1
python3 - "$work/times.json" <<'PY'
import json, sys
ours, peer = (1000 * result["median"] for result in json.load(open(sys.argv[1]))["results"])
print(f"varmodel run   {ours:7.1f} ms\ngretlcli -b    {peer:7.1f} ms\nratio          {ours / peer:7.2f}")
PY
