#!/usr/bin/env bash
# Follows docs/first_skin.md line by line in an empty folder, and takes the skin and the pictures
# that come of it to docs/first_skin: `art/first_skin.sh [BUILD]`. Fails if a check says other than
# the page does. Needs `./setup art`.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$top/build}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/skin"

# The blocks of the page as one script: commands as they are, lines for a file as what appends them,
# and what a check is to say as a comparison.
awk '
  /^```/ && block { if (end != "") print end; block = 0; next }
  /^```/ {
    block = 1; end = ""; shown = 0
    if ($1 == "```ini" && NF == 2) { print "cat >>" $2 " <<\"END\""; end = "END" }
    else if ($1 == "```text") { print "diff - said <<\"END\""; end = "END" }
    else if ($1 != "```sh") block = 2
    next
  }
  block == 1 && /^velora-skin check/ { print $0 " >said || true"; next }
  block == 1
' "$top/docs/first_skin.md" >"$work/script"
(cd "$work/skin" && PATH="$build:$PATH" bash -e "$work/script")

# Without the hour of their making the same pictures are the same files.
mogrify -strip -define png:exclude-chunks=date,time "$work/skin"/[!s]*.png "$work/skin"/stop*.png

rm -f "$work/skin/said" "$top/docs/first_skin"/*.png "$top/docs/first_skin/skin"/*
mkdir -p "$top/docs/first_skin/skin"
mv "$work/skin"/step*.png "$top/docs/first_skin"
mv "$work/skin"/* "$top/docs/first_skin/skin"
"$build/velora-skin" check "$top/docs/first_skin/skin/first.vs4"
