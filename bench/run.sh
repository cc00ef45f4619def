#!/usr/bin/env bash
# All measurements of docs/performance.md and docs/accuracy.md, on one core. Needs: make bench, which installs and
# builds what this uses.
set -euo pipefail
cd "$(dirname "$0")/.."
bin=build/bench/bin
core="taskset -c 0"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

echo "== engine beside OpenBLAS and LAPACK"
$core $bin/engine_bench compare 2>/dev/null
echo "== choosing the lag and fitting it, by both procedures"
$core $bin/selection_bench 2>/dev/null
echo "== memory of the engine"
for workload in w1 w2 w3 w3x w4; do $core $bin/engine_memory $workload 2>/dev/null; done
echo "== accuracy"
$bin/accuracy 2>/dev/null
echo "== whole processes"
$core bench/process_bench.py $bin
echo "== the example through both procedures"
$core bench/process_bench.py $bin example
echo "== the example, beside gretl"
$core bench/process_time.sh $bin/varmodel
echo "== bootstrap and back-test, beside statsmodels and gretl"
$core $bin/dynamics_bench
OPENBLAS_NUM_THREADS=1 $core bench/dynamics_rivals.py
echo "== growth (docs/growth.svg)"
$core $bin/engine_bench grow 2>/dev/null >"$work/growth.csv"
/usr/bin/python3 bench/plot_growth.py "$work/growth.csv" docs/growth.svg
