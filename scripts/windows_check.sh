#!/usr/bin/env bash
# Checks the Windows build under Wine: what its libraries export, that an exception crosses the edge, and that the program
# does in every run of its tests what the Linux program does.
# Usage: scripts/windows_check.sh WINDOWS_BUILD LINUX_BUILD
set -euo pipefail
cd "$(dirname "$0")/.."
windows=$(realpath "$1"); linux=$(realpath "$2")
tool=x86_64-w64-mingw32

fail() { echo "windows: $*" >&2; exit 1; }

# What follows the heading of the names that a DLL exports.
exports() {
  $tool-objdump -p "$1" | awk '/\[Ordinal\/Name Pointer\]/ { on = 1; next } on && /^$/ { exit } on { print $NF }'
}
for procedure in varmodel vardynamics; do
  names=$(exports "$windows/lib/${procedure}_procedure.dll")
  [ "$names" = "${procedure^^}" ] || fail "${procedure}_procedure.dll exports" $names
done
echo "windows: each procedure exports its entry alone"

export WINEPREFIX=$windows/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8
wine=/usr/lib/wine/wine64
[ -d "$WINEPREFIX/drive_c" ] || timeout 300 $wine wineboot --init >/dev/null 2>&1
/usr/lib/wine/wineserver64 --persistent=60 2>/dev/null || true
trap '/usr/lib/wine/wineserver64 --kill 2>/dev/null || true' EXIT
$wine cmd /c exit 2>/dev/null || fail "Wine does not start"

$wine "$windows/bin/edge_exceptions.exe" || fail "an exception did not cross the edge"

# Bad inputs, reference numbers, examples, saved files, names in any script. VARMODEL_TWIN_TESTS names others.
tests=${VARMODEL_TWIN_TESTS:-All/*:Lags/*:Examples.*:Run.*:SeveralCommands.*:German.*}
# /dev/full, folders without rights and links are Linux's.
leave_out=Run.SaveFailuresKeepTheOutputAndTheOldFile:Run.OutputFilesThatCannotBeWrittenAreExitCodeFour
export VARMODEL_TWIN_LOG=$windows/twin VARMODEL_WINE=$wine
export VARMODEL_WINDOWS=$windows/bin/varmodel.exe VARMODEL_LINUX=$linux/bin/varmodel
rm -rf "$VARMODEL_TWIN_LOG"; mkdir "$VARMODEL_TWIN_LOG"
VARMODEL_PROGRAM=$PWD/scripts/windows_twin.py "$linux/tests/cli_test" --gtest_brief=1 \
  --gtest_filter="$tests:-$leave_out" || fail "a test of the program failed"

found() { cat "$VARMODEL_TWIN_LOG"/*.txt | grep "^$1" || true; }
runs=$(found run: | wc -l)
[ "$runs" -ge 30 ] || fail "only $runs runs were compared"
[ -z "$(found differs)" ] || { found differs; fail "these runs differ from Linux's"; }
largest=$(found close | awk '{ if ($2 + 0 > most) most = $2 + 0 } END { print most + 0 }')
echo "windows: $runs runs do what Linux's do; $(found close | wc -l) numbers of records differ, by at most $largest"
