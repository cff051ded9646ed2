#!/bin/bash
# Makes the Debian packages and looks at them: their files, what they depend on, what lintian says where
# it is installed. Installs them below a folder, runs the almanac there with the data that they bring,
# asks the library for the answers whose hash is known, and removes them again.
#   check_debian.sh HASH_HOST WORK [BUILT]
# The packages stay in WORK/packages. With BUILT, a folder such as out/, they are made of its finished
# files, which takes seconds; without it they are built as make deb builds them. Ends with 77 where debhelper is not installed.
set -eu
export LC_ALL=C
here=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$here/../.." && pwd)
hash_host=$1 work=$2 built=${3:-}
if ! command -v dh >/dev/null; then
  echo "check_debian: no debhelper: apt-get install debhelper"
  exit 77
fi
fail() {
  echo "check_debian: $*" >&2
  exit 1
}
rm -rf "$work"
mkdir -p "$work/home" "$work/packages"
"$source/tools/run/deb.sh" "$work/packages" "$built" >/dev/null
cd "$work/packages"
version=$(dpkg-parsechangelog -l "$source/packaging/debian/changelog" -S Version)
release=${version%-*}
major=${release%%.*}
machine=$(dpkg-architecture -qDEB_HOST_ARCH)
triplet=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
own="libzenithor1_${version}_$machine.deb libzenithor-dev_${version}_$machine.deb"
own="$own zenithor-tools_${version}_$machine.deb zenithor-data_${version}_all.deb"
[ "$(ls)" = "$(printf '%s\n' $own | sort)" ] || fail "these packages were built:" *

# Files, apart from the documents; three of these each package has.
for package in $own; do
  dpkg-deb --fsys-tarfile "$package" | tar --list | sed -n "s|^\./\(.*[^/]\)$|${package%%_*} \1|p"
done | sort >"$work/all_files.txt"
grep -v ' usr/share/doc/' "$work/all_files.txt" >"$work/files.txt"
sed "s|TRIPLET|$triplet|; s|MAJOR|$major|; s|VERSION|$release|" "$here/debian_files.txt" | sort |
  diff - "$work/files.txt" >&2 || fail "the packages' files are not as in debian_files.txt"
for package in $own; do
  name=${package%%_*}
  for document in copyright changelog.gz changelog.Debian.gz; do
    grep -q "^$name usr/share/doc/$name/$document$" "$work/all_files.txt" || fail "$name has no $document"
  done
done

# depends PACKAGE_FILE WANTED...: it depends on these, and else on the system's libraries only.
depends() {
  local found
  found=$(dpkg-deb --field "$1" Depends | sed 's/, /\n/g' | grep -Ev '^(libc6|libgcc-s1|libstdc\+\+6) ' || true)
  [ "$found" = "$(printf '%s\n' "${@:2}")" ] || fail "$1 depends on:" $found
}
depends "libzenithor1_${version}_$machine.deb" "zenithor-data (>= $release)"
depends "libzenithor-dev_${version}_$machine.deb" "libzenithor1 (= $version)"
depends "zenithor-tools_${version}_$machine.deb" "libzenithor1 (= $version)"
[ -z "$(dpkg-deb --field "zenithor-data_${version}_all.deb" Depends)" ] || fail "zenithor-data depends"
for library in libzenithor libzenithor_values; do
  dpkg-deb --ctrl-tarfile "libzenithor1_${version}_$machine.deb" | tar --extract --to-stdout ./shlibs |
    grep -q "^$library $major libzenithor1" || fail "no $library in the shlibs file"
done
if command -v lintian >/dev/null; then
  # No bug of Debian's asks for the packages.
  lintian --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs $([ "$(id -u)" != 0 ] || echo --allow-root) $own ||
    fail "lintian is not content"
fi

# A system of its own. Who is not root unpacks only.
root=$work/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
: >"$root/var/lib/dpkg/status"
files_of_root() { find "$root" -path "$root/var/lib/dpkg" -prune -o -print; }
ours() { dpkg --root="$root" --log=/dev/null --force-depends "$@" >>"$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log" >&2; fail "dpkg $*"; }; }
files_of_root >"$work/before.txt"
if [ "$(id -u)" = 0 ]; then
  ours --install $own
else
  for package in $own; do dpkg-deb --extract "$package" "$root"; done
fi
libraries=$root/usr/lib/$triplet
run() {
  env HOME="$work/home" XDG_DATA_HOME= XDG_DATA_DIRS="$root/usr/share" LD_LIBRARY_PATH="$libraries" "$@"
}
"$source/tests/host/check_so.sh" "$libraries/libzenithor.so.$release" "$source/tests/host/abi_exports.txt" \
  _ "ZENITHOR_$major"
"$source/tests/host/check_so.sh" "$libraries/libzenithor_values.so.$release" "$source/tests/host/abi_values.txt" \
  "" "ZENITHOR_VALUES_$major"
run "$hash_host" "$libraries/libzenithor.so.$major" --expect "$source/tests/golden/answers_hash.txt"
rm -f "$libraries"/*.so # which come with the development files only
run "$root/usr/bin/almanac" doctor | tee "$work/doctor.txt"
grep -q 'All is well' "$work/doctor.txt" || fail "the almanac does not find all"
run "$root/usr/bin/karvo" verify "$root/usr/share/tavvin_files/archive" >/dev/null
if [ "$(id -u)" = 0 ]; then
  ours --purge libzenithor-dev zenithor-tools libzenithor1 zenithor-data
  files_of_root | diff "$work/before.txt" - >&2 || fail "these files stay"
  ! ls "$root/var/lib/dpkg/info" | grep zenithor >&2 || fail "these notes stay"
fi
