#!/usr/bin/env bash
# Installs, runs and removes the packages in a fresh Debian that has nothing else.
# Usage: scripts/package_check.sh FOLDER   (of the packages; as root)
#
# The archive is unpacked into a folder with blanks in its name and run there before the Debian package brings any
# library. KEEP=1 leaves the chroot for a look.
set -euo pipefail
packages=$(realpath "$1")
mirror=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/debian.sources 2>/dev/null |
  sed -n 's/^URIs: *//p; s/^deb \([^ ]*\) .*/\1/p' | sed -n '/debian/{p;q}' || true)
[ -n "$mirror" ] || { echo "package_check: apt's sources name no mirror of Debian" >&2; exit 1; }
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
root=$(mktemp -d)
chmod 755 "$root"  # apt reads as a user of its own
examples=/usr/share/doc/varmodel/examples

leave() {
  local folder
  for folder in dev/pts proc; do ! mountpoint -q "$root/$folder" || umount "$root/$folder"; done
  [ -z "${KEEP:-}" ] || { echo "the chroot is kept: $root"; return; }
  rm -rf --one-file-system "$root"
}
trap leave EXIT

inside() { chroot "$root" /usr/bin/env -i PATH=/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 TERM=xterm \
  DEBIAN_FRONTEND=noninteractive bash -c "$1"; }
step() { printf '\n== %s\n' "$1"; }

# A run on the example with a program, its forecast and its report.
try() {
  inside "cd /tmp && $1 fit '$2/us_macro_quarterly.csv' --endogenous realgdp realcons --maxlag 4 \
    --start year=1959 quarter=1 --predict 4 --html report.html >out.txt"
  inside "grep -m1 '2010Q3: 13218.66' /tmp/out.txt && grep -c 'Licences of the chart library' /tmp/report.html"
  inside "$1 describe --lang de '$2/us_macro_quarterly.csv' | grep -m1 Zeilen"
}

step "a fresh $release in $root"
debootstrap --variant=minbase "$release" "$root" "$mirror" >"$root.log" 2>&1 || { tail -5 "$root.log"; exit 1; }
rm -f "$root.log"
mount -t proc proc "$root/proc"
mount -t devpts -o newinstance,ptmxmode=0666 devpts "$root/dev/pts"
ln -sf pts/ptmx "$root/dev/ptmx"
mkdir "$root/packages"
cp "$packages"/*.deb "$packages"/*.tar.gz "$root/packages/"
inside 'dpkg -l | grep -c ^ii' | sed 's/$/ packages/'

step "the archive, in a folder with blanks, called over a link"
inside 'mkdir "/opt/a folder" && tar -xzf /packages/*.tar.gz -C "/opt/a folder" && mv "/opt/a folder"/varmodel-* \
  "/opt/a folder/my varmodel" && ln -s "/opt/a folder/my varmodel/bin/varmodel" /usr/local/bin/varmodel'
inside 'varmodel --version'
inside 'if ldd "/opt/a folder/my varmodel/bin/varmodel" | grep "not found"; then exit 1; fi'
try varmodel "/opt/a folder/my varmodel/share/doc/varmodel/examples"
inside 'rm -r "/opt/a folder" /usr/local/bin/varmodel'

step "the Debian package"
inside 'apt-get update -qq && dpkg -I /packages/*.deb | grep -E "Package|Version|Depends|Recommends|Installed-Size"'
inside 'find / -xdev -path /proc -prune -o -path /var -prune -o -path /tmp -prune -o -print | sort >/packages/before'
inside 'apt-get install -y -qq --no-install-recommends /packages/*.deb >/packages/log 2>&1 || { tail /packages/log; exit 1; }'
inside 'varmodel --version'
try varmodel "$examples"
inside 'varmodel --licenses | grep -c "^### "' | sed 's/$/ licence texts/'

step "man pages and completion in bash, zsh and fish"
inside 'apt-get install -y -qq --no-install-recommends man-db zsh fish bash-completion >>/packages/log 2>&1'
inside 'zcat /usr/share/man/man1/varmodel-fit.1.gz >/tmp/page && man -l /tmp/page | grep -m1 "^SYNOPSIS" '
for shell in bash zsh fish; do
  cp "$(dirname "$0")/../tests/install/complete.$shell" "$root/packages/"
  offered=$(inside "cd /tmp && $shell /packages/complete.$shell 'varmodel fit data.csv --select h'")
  echo "$shell: $offered"
  [ "$offered" = hqic ]
done

step "removed"
inside 'apt-get purge -y -qq varmodel man-db zsh fish bash-completion >>/packages/log 2>&1
  apt-get autoremove --purge -y -qq >>/packages/log 2>&1'
inside 'find / -xdev -path /proc -prune -o -path /var -prune -o -path /tmp -prune -o -print | sort >/packages/after
  comm -13 /packages/before /packages/after | grep -i varmodel && exit 1; dpkg -l | grep varmodel && exit 1; true'
echo "nothing of varmodel is left"
