#!/bin/bash
# Builds the Debian packages, checks them as make test does, installs them in a minimal Debian (debootstrap) with its own package manager,
# runs the almanac there as a user without any setting, purges them, and compares every file of the
# system with what was there before. Needs root, debootstrap and a Debian mirror.
#   debian_packages.sh [RELEASE]
# RELEASE is bookworm without this: the one that the packages are built on, or a later one. The system is
# made below build/debian_packages and removed at the end.
set -eu
export LC_ALL=C
cd "$(dirname "$0")/../.."
. tools/check/bare_debian.sh
release=${1:-bookworm}
version=$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)
work=$PWD/build/debian_packages
system=$work/$release
rm -rf --one-file-system "$system"
mkdir -p "$work"
log=$work/$release.log
attempt() { "$@" >>"$log" 2>&1 || { tail -n 20 "$log" >&2; echo "debian_packages: $*: failed" >&2; exit 1; }; }

: >"$log"
tools/run/build.sh linux data answers_hash
attempt tests/install/check_debian.sh "$PWD/build/linux/tests/host/answers_hash" "$work/made"
attempt unshare --mount debootstrap --variant=minbase "$release" "$system" "$mirror"
tell_of_mirror "$system"
echo "deb $mirror $release main" >"$system/etc/apt/sources.list"
attempt inside "$system" apt-get update
mkdir "$system/srv/packages"
for name in libzenithor1 libzenithor-dev zenithor-tools zenithor-data; do
  cp "$work"/made/packages/"${name}_${version}"_*.deb "$system/srv/packages"
done
# What they need of the system comes first, so that the lists differ by them alone.
attempt inside "$system" env DEBIAN_FRONTEND=noninteractive apt-get -y --no-install-recommends install libstdc++6

# Every file with its digest; not what package manager and dynamic linker note for themselves.
list() {
  (cd "$system" && find . -xdev \( -path ./proc -o -path ./sys -o -path ./dev -o -path ./var/cache -o \
    -path ./var/log -o -path ./var/lib/apt -o -path './var/lib/dpkg/*-old' -o -path ./etc/ld.so.cache \) \
    -prune -o \( -type f -exec sha256sum {} + -o -printf '%y %m %u %g %l %p\n' \) | sort)
}
list >"$work/before.txt"
attempt inside "$system" env DEBIAN_FRONTEND=noninteractive sh -c \
  'apt-get -y --no-install-recommends install /srv/packages/*.deb'
inside "$system" setpriv --reuid=nobody --regid=nogroup --clear-groups env -i PATH=/usr/bin HOME=/nonexistent \
  almanac doctor | tee "$work/doctor.txt"
grep -q '^and takes those in /usr/share/tavvin_files/archive$' "$work/doctor.txt"
grep -q 'All is well' "$work/doctor.txt"
inside "$system" almanac today --date 2000-01-01T12:00 | grep -E '^(body|Venus)'
attempt inside "$system" karvo verify /usr/share/tavvin_files/archive
attempt inside "$system" env DEBIAN_FRONTEND=noninteractive apt-get -y purge \
  libzenithor1 libzenithor-dev zenithor-tools zenithor-data
list >"$work/after.txt"
diff "$work/before.txt" "$work/after.txt" || { echo "debian_packages: these files differ" >&2; exit 1; }
rm -rf --one-file-system "$system"
echo "$release: installed, run and removed without a trace ($(wc -l <"$work/before.txt") lines compared)"
