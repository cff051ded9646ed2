#!/bin/bash
# What the dynamic linker and a packager see of the shared object, read from the file itself.
#   check_so.sh LIBRARY.so EXPORTS.txt PREFIX VERSION
# Checks: it exports the listed names, each after PREFIX and in VERSION, and nothing else but VERSION;
# the name that it goes by is the one that the header's loader asks for, with the number at the end of
# VERSION, and a file of that name is beside it; it needs system libraries only; relocations are read-only, the stack is not executable, and
# there is no search path in it; functions with arrays are guarded, frames beyond a page touch every
# page, lengths that the compiler knows are checked, and all of it is marked for control-flow
# enforcement; with an empty PREFIX, the library with its data inside, it opens no file, asks for no
# environment and starts no thread.
set -eu
export LC_ALL=C
library=$1 exports=$2 prefix=$3 version=$4
failures=0
fail() {
  echo "check_so: $library: $*" >&2
  failures=$((failures + 1))
}
exported=$(nm --dynamic --defined-only --with-symbol-versions "$library" | awk '{print $3}' | sort)
listed=$( (sed "s/^/$prefix/; s/\$/@@$version/" "$exports" && echo "$version") | sort)
[ "$exported" = "$listed" ] ||
  fail "exported and not listed, or (indented) listed and not exported:" \
    "$(comm -3 <(printf '%s\n' "$exported") <(printf '%s\n' "$listed") | head -n 30)"
dynamic=$(readelf --dynamic --wide "$library")
soname=$(printf '%s\n' "$dynamic" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
base=$(basename "$library")
[ "$soname" = "${base%%.so*}.so.${version##*_}" ] || fail "goes by the name \"$soname\""
[ "$(dirname "$library")/$soname" -ef "$library" ] || fail "$soname is not beside it"
grep -q "_LIBRARY_SONAME \"$soname\"\$" "$(dirname "$0")"/../../include/zenithor/*.h ||
  fail "no header's loader asks for $soname"
needed=$(printf '%s\n' "$dynamic" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
[ -n "$needed" ] || fail "needs no library"
for name in $needed; do
  case $name in
    libc.so.* | libm.so.* | libgcc_s.so.* | libstdc++.so.* | libdl.so.* | libpthread.so.* | ld-linux*) ;;
    *) fail "needs $name" ;;
  esac
done
! printf '%s\n' "$dynamic" | grep -Eq '\((RPATH|RUNPATH)\)' || fail "has a search path"
printf '%s\n' "$dynamic" | grep -q 'BIND_NOW' || fail "is not bound at load"
segments=$(readelf --segments --wide "$library")
printf '%s\n' "$segments" | grep -q 'GNU_RELRO' || fail "relocations stay writable"
printf '%s\n' "$segments" | grep 'GNU_STACK' | grep -q 'RW ' || fail "stack is executable"
undefined=$(nm --dynamic --undefined-only "$library" | awk '{print $2}' | sed 's/@.*//')
has() { printf '%s\n' "$undefined" | grep -qx "$1"; }
has __stack_chk_fail || fail "is compiled without stack protector"
# What formats text does it by the checked routine, and what asks for the environment by the guarded
# one. The values library does neither.
! has snprintf || fail "is compiled without _FORTIFY_SOURCE"
! has getenv || fail "takes the environment of a privileged process too"
if [ -n "$prefix" ]; then
  has __snprintf_chk || fail "is compiled without _FORTIFY_SOURCE"
  has secure_getenv || fail "does not take the environment by secure_getenv"
else
  for name in $undefined; do
    case $name in
      *open* | *getenv | mmap* | *printf* | *put[cs] | *write* | *_create | clone* | *fork | *spawn* | \
        system | syscall) [ "$name" = pthread_key_create ] || fail "calls $name" ;;
    esac
  done
fi
readelf --notes --wide "$library" | grep -q 'x86 feature: IBT, SHSTK' ||
  fail "is not marked for control-flow enforcement"
code=$(objdump --disassemble --no-show-raw-insn --wide "$library")
# A frame of more than a page is made page by page: no single subtraction is larger.
large=$(printf '%s\n' "$code" | sed -n 's/.*sub  *\$0x\([0-9a-f]*\),%rsp$/\1/p' | grep -E '^[0-9a-f]{4,}$' |
  while read -r size; do [ $((0x$size)) -le 4096 ] || echo "$size"; done)
[ -z "$large" ] || fail "the stack pointer moves by more than a page at once:" $large
printf '%s\n' "$code" | grep -q 'sub  *$0x1000,%rsp' || fail "no frame is made page by page"
[ "$failures" = 0 ]
echo "$soname: $(wc -l <"$exports") exports; needs" $needed
