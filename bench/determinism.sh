#!/usr/bin/env bash
# Builds the procedures with both compilers at three levels of optimisation, runs three jobs with each of them and every
# kernel set in the program of build/release, and prints the SHA-256 of the full documents. Succeeds when all are one and
# the same.
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Saves nothing, so that the document is all there is.
sed -e '/\/SAVE/d' -e "s|us_macro_quarterly.csv|$PWD/examples/us_macro_quarterly.csv|" examples/us_macro.toml \
  >"$work/example.toml"

# The example is computed in twice the precision; 3,000 rows of 9 series are enough to be computed in doubles.
awk 'BEGIN {
  for (j = 1; j <= 9; j++) printf "y%d%s", j, j < 9 ? "," : "\n"
  state = 1
  for (t = 0; t < 3000; t++) for (j = 1; j <= 9; j++) {
    state = state * 16807 % 2147483647
    last[j] = 0.5 * last[j] + state / 1000000
    printf "%.6f%s", last[j], j < 9 ? "," : "\n"
  }
}' >"$work/noise.csv"
sed -e '/\/SAVE/d' -e "s|us_macro_quarterly.csv|$PWD/examples/us_macro_quarterly.csv|" examples/us_macro_analyze.toml \
  >"$work/analyze.toml"
sed -e 's/PREDICT//; s/ENDOGENOUS=.* LAG/ENDOGENOUS=y1 y2 y3 y4 y5 y6 y7 y8 y9 LAG/' -e '/^\[variables/,$d' \
  -e "s|$PWD/examples/us_macro_quarterly.csv|noise.csv|" "$work/example.toml" >"$work/noise.toml"

fail() {
  cat "$work/log" >&2
  exit 1
}

# build COMPILER LEVEL: leaves the procedures in build/determinism-COMPILERLEVEL.
build() {
  local tree=build/determinism-$1$2
  cmake -S . -B "$tree" -G Ninja -Wno-dev -DCMAKE_CXX_COMPILER="$1" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_FLAGS_RELEASE="$2 -DNDEBUG" -DVARMODEL_TESTS=OFF >"$work/log" 2>&1 || fail
  ninja -C "$tree" varmodel_procedure vardynamics_procedure >"$work/log" 2>&1 || fail
}

# The documents alone, as the procedure handed them over: the records around them tell of paths.
documents() {
  sed -E 's/^.*,"documents":\[\{"command":1,"items":\[[^]]*\],"document"://; s/\}\]\}$//' "$work"/*.json
}

for compiler in g++ clang++; do
  for level in -O0 -O2 -O3; do
    build "$compiler" "$level"
    rm -rf "$work/run"
    mkdir "$work/run"
    cp -r build/release/{bin,lib,share} "$work/run"
    cp "build/determinism-$compiler$level/lib/"*_procedure* "$work/run/lib/"
    for kernels in baseline avx2 avx512; do
      [ "$kernels" = baseline ] || grep -q "${kernels/avx512/avx512f}" /proc/cpuinfo || continue
      for job in example noise analyze; do
        VARMODEL_KERNEL=$kernels "$work/run/bin/varmodel" run -q --json "$work/$job.json" "$work/$job.toml" \
          >"$work/log" 2>&1 || fail
      done
      printf '%s  %-7s %s %s\n' "$(documents | sha256sum | cut -d' ' -f1)" "$compiler" "$level" "$kernels" |
        tee -a "$work/sums"
    done
  done
done
[ "$(cut -d' ' -f1 "$work/sums" | sort -u | wc -l)" -eq 1 ] || { echo "the documents differ" >&2; exit 1; }
echo "the same documents from $(wc -l <"$work/sums") builds and kernels"
