# What the scripts of bad luck share: rows, and what has to be true after each of them. Source it with the
# program as the first argument. A row is one line that begins with `row`, so that `list` can print them all.
. "$(dirname "${BASH_SOURCE[0]}")/../desktop/velora.sh"
hostile=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
this_row=

# row WHAT SEEN [COMMAND...]: what is done to the program, and what must be seen; the command does and sees
# it, or the lines that follow do. What has to be true after the row before is looked at first.
row() {
  [ -z "$this_row" ] || stay_calm
  this_row=$1
  step "$1: $2"
  shift 2
  [ $# = 0 ] || "$@"
}

# The last row of a script has been seen.
end_rows() {
  stay_calm
  this_row=
}

# stay_calm: the program lives (or has ended as it should, see `velora_ended`), its event loop answers, no
# sanitizer has spoken, and the user's files are what they were.
stay_calm() {
  check 'no sanitizer report' not grep -q 'Sanitizer\|runtime error' "$session_dir/velora.log"
  [ -z "${remembered:-}" ] || check "the user's files as before" same_files
  [ -z "${velora:-}" ] && return
  check 'the program lives' kill -0 "$velora"
  check 'the event loop answers' hand answers
}

# set_hostile_stage [display] [sound] [manager]: the stage, and a hand that needs no place on the screen.
set_hostile_stage() {
  SESSION_SCREEN=640x480x24 set_stage "$@"
  : >"$session_dir/velora.log"
  start_bus
  export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
  coproc HAND { exec "$hostile/hand" 2>>"$session_dir/hand.log"; }
  session_pids+=("$HAND_PID")
}

# hand COMMAND [NAME]: see there; each waits by itself.
hand() {
  local answer=
  printf '%s\n' "$*" >&"${HAND[1]}"
  read -r answer <&"${HAND[0]}"
  [ "$answer" = yes ]
}

# press NAME: of a button, as a screen reader does.
press() {
  check "the button $1" hand press "$1"
}

# await NAME: a control of that name; the title is named by its file, the status by its words.
await() {
  check "a control named $1" hand await "$1"
}

# await_colour X Y COLOUR: at that place of the window.
await_colour() {
  check "the colour $3 at $1 $2" hand colour "$window" "$@"
}

# await_button NAME [KEY]: it shows that picture of the skin, in its middle at least.
await_button() {
  local left top width height
  read -r left top width height < <(place_of "$1")
  await_colour $((left + width / 2)) $((top + height / 2)) \
    "$(colour_in "$(skin_picture "$1" "${2:-filename}")" $((width / 2)) $((height / 2)))"
}

# colour_in FILE X Y: of a picture, asked for once.
colour_in() {
  local known="$session_dir/colour-${1//\//-}"
  [ -e "$known" ] || convert "$1" -alpha off -depth 8 -format "%[hex:u.p{$2,$3}]" info: >"$known"
  echo "#$(cut -c1-6 "$known")"
}

# remember_files FILE...: those, and that nothing is beside them, have to stay as they are.
remember_files() {
  remembered=("$@")
  list_user_files >"$session_dir/remembered"
}

list_user_files() {
  stat -c '%n %F %s %a %Y' "${remembered[@]}"
  find "$app" "$HOME" -name '.velora-*' -o -name 'vel*.ini' | sort
  sha256sum $(find "${remembered[@]}" -maxdepth 0 -type f -size -10M)
}

same_files() {
  list_user_files | diff "$session_dir/remembered" - >&2
}

open_files() {
  ls "/proc/$velora/fd" | wc -l
}

memory_kb() {
  awk '/^RssAnon/ { print $2 }' "/proc/$velora/status"
}

peak_memory_kb() {
  awk '/^VmHWM/ { print $2 }' "/proc/$velora/status"
}

# The sanitizers keep what was freed and move what is left, so memory counts without them only.
is_sanitized() {
  grep -q __asan_init "$app/velora"
}

# remember_costs: open files and memory, to be compared with `costs_as_before` when the rows are over.
remember_costs() {
  files_before=$(open_files)
  memory_before=$(memory_kb)
}

has_files_as_before() {
  [ "$(open_files)" -le "$files_before" ]
}

costs_as_before() {
  local room_kb=8192
  wait_for 'as few open files as before' has_files_as_before
  is_sanitized || check 'about as much memory as before' test "$(memory_kb)" -le $((memory_before + room_kb))
}

# check_peak KB: so much memory at the most, ever; the sanitizers take as much again and more for themselves.
check_peak() {
  local most=$1
  ! is_sanitized || most=$((most * 3))
  check "$(peak_memory_kb) kB at the most" test "$(peak_memory_kb)" -le "$most"
}

# quit [SIGNAL]: a request to end is followed with status 0.
quit() {
  end_velora "$@"
  velora=
}

# list_playlists FILE...: they become the catalogue.
list_playlists() {
  local number=0 file
  {
    printf '[Settings]\r\nCount=%s\r\n' $#
    for file in "$@"; do
      number=$((number + 1))
      printf '[%s]\r\nEnabled=True\r\nFile=%s\r\nPath=%s\r\n' "$number" "$(basename "$file")" "$(dirname "$file" | tr / '\\')"
    done
  } >"$app/velplaylists.ini"
  [ -z "${remembered:-}" ] || list_user_files >"$session_dir/remembered"
}

# start_skin FIRST [ARGUMENT...]: starts the program with that skin of $skins, those of the rows that name it
# behind it: each leads to the next.
start_skin() {
  local previous=$1 next
  printf '[Settings]\r\nCount=1\r\nLastSkin=1\r\n[1]\r\nFilename=%s\r\n' "${skins//\//\\}\\$1.vs4" >"$app/velskins.ini"
  for next in $(sed -n "s/^row .* [a-z_]* $1 \([a-z_]*\)\$/\1/p" "$0"); do
    sed -i "s/^Playlist=.*/Playlist=$next.vs4\r/" "$skins/$previous.vs4"
    previous=$next
  done
  start_velora "${@:2}"
}

# has_ground SKIN: its background is seen.
has_ground() {
  await_colour 100 50 "$(cat "$skins/$1.colour")"
}

# shows_skin FIRST NAME: a press on playlist brings it up.
shows_skin() {
  press Playlist
  has_ground "$2"
}
