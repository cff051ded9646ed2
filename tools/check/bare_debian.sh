# For scripts that work in a minimal Debian below a folder; source it. It needs root, debootstrap and a
# Debian mirror, and ends the script where one is missing.
#   mirror             that of this machine's own sources
#   mirror_of SUFFIX   the same for another suite of its release, such as -security; empty: none
#   inside SYSTEM COMMAND...
if [ "$(id -u)" != 0 ] || ! command -v debootstrap >/dev/null; then
  echo "$(basename "$0") needs root and debootstrap" >&2
  exit 1
fi
# What this machine's sources say of a suite: its mirror.
this_release=$(. /etc/os-release && echo "$VERSION_CODENAME")
mirror_of() {
  apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' |
    awk -v suite="$this_release$1" '$2 == suite { print $1; exit }'
}
mirror=$(mirror_of "")
if [ -z "$mirror" ]; then
  echo "No mirror of $this_release stands in this machine's sources" >&2
  exit 1
fi

# inside SYSTEM COMMAND...: in mount and process namespaces of their own, so that neither mounts nor
# processes outlive the command.
inside() {
  unshare --mount --pid --fork --kill-child /bin/sh -c '
    system=$1
    shift
    mount -t proc proc "$system/proc" && mount --rbind /dev "$system/dev" || exit 1
    exec chroot "$system" env -i HOME=/srv TERM=dumb LANG=C.UTF-8 \
      PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"' sh "$@" </dev/null
}

# How this machine reaches its mirror, told to SYSTEM.
tell_of_mirror() {
  for file in /etc/resolv.conf /etc/hosts; do
    [ ! -f $file ] || cp $file "$1/etc/"
  done
  apt-config dump | grep -E '^Acquire::(Check-|Retries|[Hh]ttps?::)' >"$1/etc/apt/apt.conf.d/90mirror"
}
