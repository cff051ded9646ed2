# zsh completes the almanac's words by packaging/almanac/_almanac.
command -v zsh >/dev/null || { echo "no zsh: apt-get install zsh"; exit 77; }
cp "$ROOT/packaging/almanac/_almanac" .
python3 "$ROOT/tests/cli/complete_in_zsh.py" . "almanac stati" "almanac stations --bo" \
  "almanac stations --body me" "almanac stations --body mars,ju" "almanac next full" \
  "almanac positions --format c" "almanac --library ./_alm" "almanac aspects --angle semi-se" \
  "almanac positions --body mars --fo"
