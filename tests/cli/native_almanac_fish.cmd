# fish completes the almanac's words by packaging/almanac/almanac.fish.
command -v fish >/dev/null || { echo "no fish: apt-get install fish"; exit 77; }
cp "$ROOT/packaging/almanac/almanac.fish" .
complete_as() {
  echo "$1: $(fish --no-config -c "source almanac.fish; complete --do-complete '$1'" | cut -f 1 | sort | tr '\n' ' ')"
}
complete_as "almanac st"
complete_as "almanac stations --bo"
complete_as "almanac stations --body m"
complete_as "almanac stations --body mars,ju"
complete_as "almanac next full"
complete_as "almanac positions --format js"
complete_as "almanac --library ./alm"
complete_as "almanac aspects --angle s"
