#!/bin/bash
# Does what a new user does, on bare machines: installs a minimal Debian into a folder (debootstrap), clones
# the repository's last commit there, runs targets of the Makefile, and prints a table. Needs root,
# debootstrap and a Debian mirror: the one of this machine's own sources, whatever its release. Each
# target starts from a copy of the bare system, so that none lives on what another one installed.
#   fresh.sh RELEASE [OPTION...]
#   --security no|yes|both   without the security suite, with it and its updates installed, or one after
#                            the other (the default)
#   --targets LIST           of the Makefile, with commas; run,dll,test without this
#   --folder NAME            the clone's folder; zenithor without this
#   --keep                   leaves the systems where they are
# They are made below build/fresh, or below the folder that ZENITHOR_FRESH names, and the logs stay there.
# Ends with 1 where a target failed. Minutes include what is downloaded and installed.
set -eu
cd "$(dirname "$0")/../.."
repository=$PWD
release=${1:?fresh.sh RELEASE, such as bookworm or trixie}
shift
variants="no yes" targets=run,dll,test folder=zenithor keep=
while [ $# -gt 0 ]; do
  case $1 in
    --security) variants=${2/both/no yes}; shift ;;
    --targets) targets=$2; shift ;;
    --folder) folder=$2; shift ;;
    --keep) keep=yes ;;
    *) echo "fresh.sh: unknown option $1" >&2; exit 1 ;;
  esac
  shift
done
mkdir -p "${ZENITHOR_FRESH:-build/fresh}"
work=$(cd "${ZENITHOR_FRESH:-build/fresh}" && pwd)
. tools/check/bare_debian.sh
exec 9>"$work/lock"
if ! flock -n 9; then
  echo "Another fresh.sh works in $work" >&2
  exit 1
fi

security_mirror=$(mirror_of -security)

# make_base SYSTEM SECURITY LOG: the bare system, with what cloning and make need.
make_base() {
  local system=$1 security=$2
  unshare --mount debootstrap --variant=minbase "$release" "$system" "$mirror" || return 1
  tell_of_mirror "$system"
  echo "deb $mirror $release main" >"$system/etc/apt/sources.list"
  if [ "$security" = yes ]; then
    echo "deb $mirror $release-updates main" >>"$system/etc/apt/sources.list"
    echo "deb $security_mirror $release-security main" >>"$system/etc/apt/sources.list"
  fi
  inside "$system" apt-get update || return 1
  inside "$system" env DEBIAN_FRONTEND=noninteractive sh -c '
    apt-get -y dist-upgrade && apt-get -y install --no-install-recommends git make ca-certificates' || return 1
  git clone -q --no-local "$repository" "$system/srv/$folder"
}

# Whether the index of 32-bit packages in the security suite can be loaded.
security_index_is_whole() {
  inside "$1" sh -c 'mkdir /var/lists && cp -r /var/lib/dpkg /var/dpkg-copy &&
    dpkg --admindir=/var/dpkg-copy --add-architecture i386 &&
    apt-get -o Dir::State::lists=/var/lists -o Dir::State::status=/var/dpkg-copy/status \
      -o APT::Architectures::=amd64 -o APT::Architectures::=i386 -o APT::Update::Error-Mode=any update &&
    ls /var/lists | grep -q "security.*binary-i386"; status=$?; rm -r /var/lists /var/dpkg-copy; exit $status'
}

# verdict TARGET SYSTEM LOG STATUS
verdict() {
  local target=$1 clone=$2/srv/$folder log=$3 status=$4 made=
  if [ "$status" != 0 ]; then
    echo "FAILED ($status)"
    return
  fi
  case $target in
    run)
      grep -q '^Mars ' "$log" || { echo "FAILED (no table)"; return; }
      if grep -q 'this is the native library' "$log"; then
        echo "table from the native library: no Wine"
      else
        echo "table from the 32-bit DLL"
      fi
      ;;
    dll)
      for file in win32/zenithor.dll win32/zenithor.lib win64/zenithor.dll win64/zenithor.lib; do
        [ ! -f "$clone/out/$file" ] || made="$made $file"
      done
      [ -f "$clone/out/win32/zenithor.dll" ] && echo "made$made" || echo "FAILED (no DLL)"
      ;;
    test)
      grep -q '^100% tests passed' "$log" || { echo "FAILED (no verdict of ctest)"; return; }
      sed -n 's/^100% tests passed.* out of \([0-9]*\)$/\1 tests passed/p' "$log" | tr -d '\n'
      sed -n 's/^Not everything .*tested: \(.*\)$/, of \1 only/p' "$log"
      echo
      ;;
    *) echo "done" ;;
  esac
}

table=
row() {
  table+=$(printf '%-10s %-9s %-7s %8s   %s' "$@")$'\n'
  echo "$release, security $2, $3: $5"
}
failed=0
for security in $variants; do
  name=$release-security-$security
  base=$work/$name
  if [ "$security" = yes ] && [ -z "$security_mirror" ]; then
    row "$release" yes - - "left out: this machine's sources name no security suite"
    continue
  fi
  rm -rf --one-file-system "$base"
  started=$SECONDS
  if ! make_base "$base" "$security" >"$work/$name.log" 2>&1; then
    tail -n 5 "$work/$name.log"
    row "$release" "$security" - - "FAILED: no bare system; see $name.log"
    failed=1
    continue
  fi
  echo "A bare $release, security $security: $((SECONDS - started)) s"
  note=
  if [ "$security" = yes ] && ! security_index_is_whole "$base" >>"$work/$name.log" 2>&1; then
    echo "The mirror's security suite has no whole index of 32-bit packages, so Wine may not be had; going on."
    note="; the security suite's i386 index is broken"
  fi
  for target in ${targets//,/ }; do
    system=$base-$target
    log=$work/$name-$target.log
    rm -rf --one-file-system "$system"
    cp -a --reflink=auto "$base" "$system"
    started=$SECONDS
    status=0
    inside "$system" make -C "/srv/$folder" "$target" >"$log" 2>&1 || status=$?
    minutes=$(awk -v seconds=$((SECONDS - started)) 'BEGIN { printf "%.1f", seconds / 60 }')
    said=$(verdict "$target" "$system" "$log" "$status")
    case $said in
      FAILED*)
        failed=1
        tail -n 15 "$log"
        ;;
    esac
    row "$release" "$security" "$target" "$minutes" "$said$note"
    [ -n "$keep" ] || rm -rf --one-file-system "$system"
  done
  [ -n "$keep" ] || rm -rf --one-file-system "$base"
done
echo
printf '%-10s %-9s %-7s %8s   %s\n' release security target minutes verdict
printf '%s' "$table"
exit "$failed"
