#!/usr/bin/env bash
# Installs the built program under a prefix, or takes what was installed away again.
# Usage: scripts/install.sh install|uninstall PREFIX [BUILD]   (DESTDIR, if set, stands before the prefix)
#
# What was put there, files and folders that were not there before, is listed in share/varmodel/installed.txt, relative
# to the prefix: the tree may be moved. An older version is taken away first.
set -euo pipefail
what=$1
prefix=$(realpath -m -- "$2")
build=${3:-$(dirname "$0")/../build/release}
root=${DESTDIR:-}$prefix
list=share/varmodel/installed.txt

refuse() {
  echo "install: $1" >&2
  exit 1
}

writable() {
  local folder=$1
  until [ -e "$folder" ]; do folder=$(dirname "$folder"); done
  [ -d "$folder" ] && [ -w "$folder" ]
}

take_away() {
  local entry
  while IFS= read -r entry; do
    case "$entry" in
      /* | ../* | */../*) refuse "$root/$list names '$entry', which does not lie under the prefix" ;;
      */) rmdir --ignore-fail-on-non-empty -- "$root/$entry" 2>/dev/null || true ;;
      *) rm -f -- "$root/$entry" ;;
    esac
  done < <(sort -r "$root/$list")
}

# Prints the folders of the tree in $1 that the prefix lacks, each with a slash at its end, and all its files.
what_is_new() {
  local entry
  (cd "$1" && find . -mindepth 1 -type d -printf '%P/\n') | while IFS= read -r entry; do
    [ -d "$root/$entry" ] || printf '%s\n' "$entry"
  done
  (cd "$1" && find . -mindepth 1 ! -type d -printf '%P\n')
  printf '%s\n' "$list"
}

case "$what" in
  install)
    writable "$root" || refuse "no permission to write to $root: run as root, or choose another place with PREFIX="
    staged=$(mktemp -d)
    trap 'rm -rf "$staged"' EXIT
    DESTDIR=$staged cmake --install "$build" --component program --prefix "$prefix" >/dev/null
    [ ! -f "$root/$list" ] || take_away
    what_is_new "$staged$prefix" >"$staged/list"
    mkdir -p -- "$root/$(dirname "$list")"
    cp "$staged/list" "$root/$list"  # first: what is broken off can be uninstalled, too
    cp -R --preserve=mode,timestamps,links -- "$staged$prefix/." "$root/"
    echo "installed under $root: run $prefix/bin/varmodel"
    ;;
  uninstall)
    [ -f "$root/$list" ] || refuse "$root/$list is missing: nothing was installed there by 'make install'"
    take_away
    echo "uninstalled from $root"
    ;;
  *) refuse "unknown '$what' (known: install, uninstall)" ;;
esac
