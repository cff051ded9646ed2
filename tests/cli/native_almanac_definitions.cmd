# The manual page and the completions of packaging/almanac are those that the program writes
# (tools/run/almanac_definitions.sh), the shells can read them, and bash completes by them.
"$ROOT/tools/run/almanac_definitions.sh" .
for file in almanac.1 almanac.bash _almanac almanac.fish; do
  cmp $file "$ROOT/packaging/almanac/$file" && echo "$file is up to date"
done
for shell in bash zsh fish; do
  file=almanac.$shell
  [ $shell != zsh ] || file=_almanac
  if command -v $shell >/dev/null; then $shell -n $file; fi
done
bash -c '
. ./almanac.bash
complete_as() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
  _almanac
  echo "$*: ${COMPREPLY[*]}"
}
complete_as almanac st
complete_as almanac stations --bo
complete_as almanac stations --body m
complete_as almanac stations --body mars,ju
complete_as almanac next full
complete_as almanac positions --format js
complete_as almanac --library ./alm
complete_as almanac aspects --angle s
'
