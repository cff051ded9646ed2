#!/bin/bash
# What a host's loader and a packager see of a DLL, read from the file itself.
#   check_dll.sh OBJDUMP DLL EXPORTS.txt SOURCE_DIR [PREFIX]
# Checks: the export table is the listed names, each after PREFIX (if not given: one underscore), and
# nothing else;
# imports come from the five system libraries at most; address randomisation and no-execute are on
# and there are relocations to make use of them; functions with arrays are guarded; no exception
# handler is taken from a 32-bit library; the timestamp is none; no path of this machine and no symbol
# table is left in the file; with an empty PREFIX, the library with its data inside, it opens no file,
# asks for no environment, shows no window and starts no thread.
set -eu
export LC_ALL=C
objdump=$1 dll=$2 exports=$3 source_dir=$4 prefix=${5-_}
failures=0
fail() {
  echo "check_dll: $dll: $*" >&2
  failures=$((failures + 1))
}
headers=$("$objdump" -p "$dll")

# Binutils 2.40 lists "[ 0] _NAME", 2.44 "[ 0] +base[ 1]  0000 _NAME".
exported=$(printf '%s\n' "$headers" | sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' |
  sed -n 's/^[[:space:]]*\[ *[0-9]*\]\( +base\[ *[0-9]*\] *[0-9a-f]*\)\? *\([^ ]*\)$/\2/p' | sort)
listed=$(sed "s/^/$prefix/" "$exports" | sort)
[ -n "$exported" ] || fail "no exports found"
[ "$exported" = "$listed" ] ||
  fail "exported and not listed, or (indented) listed and not exported:" \
    "$(comm -3 <(printf '%s\n' "$exported") <(printf '%s\n' "$listed") | head -n 30)"
# Every address is exported by name: none by ordinal only.
addresses=$(printf '%s\n' "$headers" | grep -c 'Export RVA' || true)
[ "$addresses" = "$(printf '%s\n' "$listed" | wc -l)" ] || fail "$addresses exported addresses"

imported=$(printf '%s\n' "$headers" | sed -n 's/^[[:space:]]*DLL Name: //p' | tr a-z A-Z | sort -u)
[ -n "$imported" ] || fail "no imports found"
for library in $imported; do
  case $library in
    KERNEL32.DLL | MSVCRT.DLL | SHELL32.DLL | USER32.DLL | OLE32.DLL) ;;
    *) fail "imports from $library" ;;
  esac
done

if [ -z "$prefix" ]; then
  for library in $imported; do
    case $library in
      KERNEL32.DLL | MSVCRT.DLL) ;;
      *) fail "imports from $library, which is for files and windows" ;;
    esac
  done
  # "        4f3c8    1045  CreateFileW" in Binutils 2.40; others have more columns.
  names=$(printf '%s\n' "$headers" | sed -n '/DLL Name:/,/^$/s/^.*[[:space:]]\([A-Za-z_][A-Za-z0-9_]*\)$/\1/p')
  printf '%s\n' "$names" | grep -qx malloc || fail "the imported names cannot be read"
  opened=$(printf '%s\n' "$names" | grep -E 'open|CreateFile|MapViewOfFile|getenv|Environment|CreateThread|beginthread|CreateProcess' || true)
  [ -z "$opened" ] || fail "calls" $opened
fi

for bit in DYNAMIC_BASE NX_COMPAT; do
  printf '%s\n' "$headers" | grep -qw "$bit" || fail "$bit is off"
done
case $headers in
  *pei-x86-64*) printf '%s\n' "$headers" | grep -qw HIGH_ENTROPY_VA || fail "HIGH_ENTROPY_VA is off" ;;
esac
case $headers in
  *pei-i386*) printf '%s\n' "$headers" | grep -qw NO_SEH || fail "NO_SEH is off" ;;
esac
# The routine that ends the process when a guard word was overwritten, and who calls it.
code=$("$objdump" --disassemble --no-show-raw-insn --wide "$dll")
guard=$(printf '%s\n' "$code" | grep -B1 'int  *$0x29' | sed -n 's/^ *\([0-9a-f]*\):.*mov .*$/\1/p')
[ -n "$guard" ] || fail "is compiled without stack protector"
guarded=$(printf '%s\n' "$code" | grep -c "call  *0x0*$guard" || true)
[ "$guarded" -ge 50 ] || fail "only $guarded functions are guarded"
! printf '%s\n' "$headers" | grep -q 'Entry 5 0* 0* Base Relocation' || fail "no relocations"
printf '%s\n' "$headers" | grep -q 'relocations stripped' && fail "relocations are stripped"
printf '%s\n' "$headers" | grep -Eq '^Time/Date.*(Jan +1 00:00:00 1970|00000000)' || fail "has a timestamp"

strings=$("$(dirname "$objdump")/strings" -a "$dll" 2>/dev/null || strings -a "$dll")
[ -n "$strings" ] || fail "no strings found"
for path in "$source_dir" "${HOME:-/home}/" /home/ /tmp/; do
  ! printf '%s\n' "$strings" | grep -qF "$path" || fail "the path $path is in the file"
done
"$objdump" -t "$dll" 2>/dev/null | grep -q 'no symbols' || fail "a symbol table is left"

[ "$failures" = 0 ]
echo "$(printf '%s\n' "$listed" | wc -l) exports, $guarded guarded functions; imports from" $imported
