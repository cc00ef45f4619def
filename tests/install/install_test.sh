#!/usr/bin/env bash
# Installs a build under a prefix with blanks, runs it from where it was moved to over a link, completes in the shells
# that are there, and uninstalls. Usage: install_test.sh SOURCE BUILD VERSION
set -euo pipefail
source=$1 build=$2 version=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() { echo "install_test: $1" >&2; exit 1; }
expect() { [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"; }
has() { grep -qF -- "$2" <<<"$3" || fail "$1: '$2' is missing in: $3"; }

mkdir -p 'pre fix/lib' 'pre fix/share'
touch 'pre fix/share/mine'
"$source/scripts/install.sh" install 'pre fix' "$build" >log
mv 'pre fix' 'moved here'
ln -s 'moved here/bin/varmodel' link
tree=$work/'moved here'

shown=$(./link --version)
expect 'first line of --version' "varmodel $version" "$(head -1 <<<"$shown")"
has '--version' "VARMODEL     $tree/lib/varmodel/varmodel_procedure.so" "$shown"
has '--version' "VARDYNAMICS  $tree/lib/varmodel/vardynamics_procedure.so" "$shown"
has '--version' "de, en ($tree/share/varmodel/locale)" "$shown"
has 'libraries' "$tree/bin/../lib/varmodel/libduckdb" "$(ldd "$tree/bin/varmodel")"
examples=$tree/share/doc/varmodel/examples
./link fit "$examples/us_macro_quarterly.csv" --endogenous realgdp realcons --maxlag 2 --lang de --model-only \
  --html page.html --json record.json >log 2>&1
has 'report' '<summary>Lizenzen' "$(cat page.html)"
for name in vega-lite d3-array topojson-client; do has 'licences of a report' "$name" "$(sed -n '/<footer>/,/<.footer>/p' page.html)"; done
has 'record' "\"version\":\"$version\"" "$(cat record.json)"
for name in Boost.Math DuckDB Eigen 'Apache License' 'MIT License'; do has '--licenses' "$name" "$(./link --licenses)"; done

rm "$tree/lib/varmodel/vardynamics_procedure.so" "$tree/share/varmodel/THIRD_PARTY.md"
has 'a procedure is missing' 'VARDYNAMICS  not usable' "$(./link --version)"
has 'licences are missing' 'Install varmodel again' "$(./link --licenses 2>&1 || true)"

# Of every page man must be able to make sense; every option has its entry.
for page in "$tree"/share/man/man1/*.1; do
  [ -z "$(command -v man)" ] || expect "warnings of $page" '' "$(LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)"
done
for option in $(./link fit --help | grep -o -- '  --[a-z-]*'); do
  has "man page of fit" "${option//-/\\-}\\fR" "$(cat "$tree/share/man/man1/varmodel-fit.1")"
done

# What each shell offers for a line of which the cursor is at the end.
touch data.csv job.toml 'with blank.csv'
mkdir folder
complete_in() { PATH=$work:$PATH VARMODEL_COMPLETION=$tree/share/$2 "$1" "$source/tests/install/complete.$1" "$3" | sort | paste -sd' '; }
check_shell() { # SHELL FILE
  [ -n "$(command -v "$1")" ] || return 0
  expect "$1, subcommands" 'describe' "$(complete_in "$1" "$2" 'varmodel de')"
  expect "$1, options" '--sheet --skip --sort' "$(complete_in "$1" "$2" 'varmodel fit data.csv --s' | tr ' ' '\n' | grep -E '^--s(k|h|o)' | paste -sd' ')"
  expect "$1, keywords" 'hqic' "$(complete_in "$1" "$2" 'varmodel fit data.csv --select h')"
  expect "$1, a second keyword" 'bic' "$(complete_in "$1" "$2" 'varmodel fit data.csv --select aic b')"
  expect "$1, languages" 'de en' "$(complete_in "$1" "$2" 'varmodel run job.toml --lang ')"
  has "$1, files" 'data.csv' "$(complete_in "$1" "$2" 'varmodel fit d')"
  has "$1, files with blanks" 'blank' "$(complete_in "$1" "$2" 'varmodel fit w')"
  has "$1, files of outputs" 'job.toml' "$(complete_in "$1" "$2" 'varmodel fit data.csv --html j')"
  expect "$1, jobs" 'job.toml' "$(complete_in "$1" "$2" 'varmodel run j')"
}
ln -s link varmodel
check_shell bash bash-completion/completions/varmodel
expect "bash, a job is no data" '' "$(complete_in bash bash-completion/completions/varmodel 'varmodel run d')"
check_shell zsh zsh/site-functions/_varmodel
check_shell fish fish/vendor_completions.d/varmodel.fish

"$source/scripts/install.sh" uninstall "$tree" >log
expect 'left by uninstall' 'lib share share/mine' "$(cd "$tree" && find . -mindepth 1 -printf '%P\n' | sort | paste -sd' ')"
has 'a second uninstall' 'nothing was installed there' "$("$source/scripts/install.sh" uninstall "$tree" 2>&1 || true)"
DESTDIR=$work/stage "$source/scripts/install.sh" install /usr/local "$build" >log
[ -x "$work/stage/usr/local/bin/varmodel" ] || fail 'DESTDIR does not stand before the prefix'
DESTDIR=$work/stage "$source/scripts/install.sh" uninstall /usr/local >log
expect 'left under DESTDIR' '' "$(cd "$work/stage" && find . -mindepth 1 ! -type d)"
