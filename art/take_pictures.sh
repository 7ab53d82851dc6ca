#!/usr/bin/env bash
# Takes the pictures of the running program that the documents show, docs/velora.png and
# docs/velora_small.png, at twice the size of the skins: `art/take_pictures.sh [BUILD]`.
# Needs `./setup art`.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$top/build}
session_parts='display sound'
. "$top/bench/session.sh"
application="$session_dir/prefix/lib/velora"
cmake --install "$build" --prefix "$session_dir/prefix" >/dev/null
printf '[Settings]\r\nVolume=6\r\n' >"$application/velsettings.ini"

# A colour that no skin has: what still shows it in the picture isn't window.
around='#ff00fe'
xsetroot -solid "$around"

# find_window: the id of the program's window, once it is mapped.
find_window() {
  xdotool search --onlyvisible --class velora
}

# show SKIN PERCENT X Y PICTURE: plays the tune up to PERCENT and takes the picture. X and Y are a
# place on the play button, in pixels of the skin.
show() {
  local skin=$1 percent=$2 x=$3 y=$4 picture=$5 program window
  printf '[Settings]\r\nCount=1\r\nLastSkin=1\r\n\r\n[1]\r\nFilename=%s\r\n' \
    "$(printf '%s' "$application/VELORA_MAIN/$skin" | tr / '\\')" >"$application/velskins.ini"
  QT_SCALE_FACTOR=2 "$session_dir/prefix/bin/velora" "$top/demo/tune.mp3" &
  program=$!
  wait_for 'the window' find_window
  window=$(find_window | head -1)
  # After the start with a file the play button shows its play picture: a click brings up the stop
  # picture.
  xdotool mousemove --window "$window" $((2 * x)) $((2 * y)) click 1 mousemove 0 0
  wait_for "$percent % of the tune" sh -c "xprop -id $window _NET_WM_NAME | grep -q ' $percent%'"
  import -silent -window root "$session_dir/screen.png"
  kill "$program"
  wait "$program" || true

  convert "$session_dir/screen.png" -alpha set -fill none -draw 'color 0,0 floodfill' \
    -trim +repage "$session_dir/window.png"
  # A soft shadow on a pale ground, wide enough to breathe.
  convert "$session_dir/window.png" \( +clone -background '#20242d' -shadow 45x14+0+12 \) +swap \
    -background none -layers merge +repage -bordercolor none -border 24 \
    -background '#e8e5df' -flatten -alpha off -strip -define png:compression-level=9 "$picture"
}

show velora.vs4 31 156 76 "$top/docs/velora.png"
show velora_small.vs4 31 156 43 "$top/docs/velora_small.png"
