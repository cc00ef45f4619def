#!/usr/bin/env bash
# Formatting of all our C++ files, static analysis of the product's.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files '*.h' '*.cpp')
clang-format --dry-run --Werror "${files[@]}"
cmake --preset release -Wno-dev >/dev/null
mapfile -t sources < <(git ls-files '*.cpp' | grep -vE '^(tests|bench)/')
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/release --quiet --extra-arg=-Wno-unknown-warning-option
