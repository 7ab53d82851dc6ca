#!/usr/bin/env bash
# Takes the pictures of the running program that the documents show: docs/velora.png and
# docs/velora_small.png at twice the size of the skins, and in docs/skins one of each skin at its
# own size. `art/take_pictures.sh [BUILD [SKIN...]]`; without a skin it takes all of them.
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

# show SKIN PERCENT SCALE: plays the tune in a skin up to PERCENT and takes the window's picture.
show() {
  local skin=$1 percent=$2 scale=$3 program window left top_edge width height
  printf '[Settings]\r\nCount=1\r\nLastSkin=1\r\n\r\n[1]\r\nFilename=%s\r\n' \
    "$(printf '%s' "$application/VELORA_MAIN/$skin.vs4" | tr / '\\')" >"$application/velskins.ini"
  read -r left top_edge width height < <(
    "$top/tests/desktop/skin.py" "$application/VELORA_MAIN/$skin.vs4" play)
  QT_SCALE_FACTOR=$scale "$session_dir/prefix/bin/velora" "$top/demo/tune.mp3" &
  program=$!
  wait_for 'the window' find_window
  window=$(find_window | head -1)
  # After the start with a file the play button shows its play picture: a click brings up the stop
  # picture.
  xdotool mousemove --window "$window" $((scale * (left + width / 2))) \
    $((scale * (top_edge + height / 2))) click 1 mousemove 0 0
  wait_for "$percent % of the tune" sh -c "xprop -id $window _NET_WM_NAME | grep -q ' $percent%'"
  import -silent -window root "$session_dir/screen.png"
  kill "$program"
  wait "$program" || true

  # Whatever is not window becomes transparent: what lies around it, and what is seen through a
  # hole in it.
  convert "$session_dir/screen.png" -transparent "$around" -trim +repage "$session_dir/window.png"
}

# on_paper SHADOW BORDER PICTURE: lays the window on a pale ground, with a soft shadow.
on_paper() {
  convert "$session_dir/window.png" \( +clone -background '#20242d' -shadow "$1" \) +swap \
    -background none -layers merge +repage -bordercolor none -border "$2" \
    -background '#e8e5df' -flatten -alpha off -strip -define png:compression-level=9 "$3"
}

skins=("${@:2}")
[ "${#skins[@]}" -gt 0 ] || skins=(velora velora_small pebble pebble_small plain)
mkdir -p "$top/docs/skins"
for skin in "${skins[@]}"; do
  case $skin in
    velora | velora_small)
      show "$skin" 31 2
      on_paper 45x14+0+12 24 "$top/docs/$skin.png"
      ;;
  esac
  show "$skin" 31 1
  on_paper 45x6+0+5 8 "$top/docs/skins/$skin.png"
done
