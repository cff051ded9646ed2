# The manual page names every command and every option that the help names, and no other.
page=$ROOT/packaging/linux/karvo.1
listed() { sed -n 's/^  \([a-z]\{2,\}\)  .*/\1/p'; }
options() { grep -o '^  --[a-z-]*' | tr -d ' ' || true; }
$KARVO --help | listed >commands.txt
for command in $(cat commands.txt); do
  echo "$command"
  $KARVO $command --help | options
done >in_help.txt
sed -n 's/\\//g; s/^\.SS karvo \([a-z]*\).*/\1/p; s/^fB\(--[a-z-]*\)fR.*/\1/p' "$page" >in_page.txt
diff in_help.txt in_page.txt && cat in_page.txt
