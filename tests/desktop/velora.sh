# What every desktop test needs to drive the program: started in a copy of its directory, clicked by the
# names that its skin gives, read by its caption, its pixels and the recording of its sound. Source it with
# the program as the first argument; any command that fails then ends the test and leaves a picture.
set -Eeuo pipefail
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
test_name=$(basename "$0")
built_program=$(realpath "$1")
pictures=$(dirname "$built_program")/desktop-pictures
# The sanitizer build also ends with a search for leaks; those of the libraries are not ours.
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$tests/../lsan.supp:print_suppressions=0}"
. "$tests/session.sh"

quiet_caption='..:: velora-pro.team qu><llo ::..'
first_caption='..:: velora.team-qu><llo::..'

leave_traces() {
  mkdir -p "$pictures"
  [ -z "${DISPLAY:-}" ] || take_picture "$pictures/$test_name.png"
  echo "picture: $pictures/$test_name.png" >&2
  [ -z "${window:-}" ] || echo "caption: $(caption)" >&2
  tail -n 60 "$session_dir"/*.log >&2
}

# set_stage [display] [sound] [manager]: the session, and a copy of the application's directory that may be
# written; `skin` is the skin that clicks go by.
set_stage() {
  on_failure=leave_traces
  trap 'echo "failed: line $LINENO: $BASH_COMMAND" >&2' ERR
  start_session "$@"
  app="$session_dir/app"
  media="$session_dir/media"
  mkdir "$app" "$media"
  cp "$built_program" "$app/velora"
  cp -r "$(dirname "$built_program")/VELORA_MAIN" "$app"
  # As long as the real click, but silent: the recordings are compared with the tracks alone.
  sox -D "$(dirname "$built_program")/click.wav" "$app/click.wav" vol 0
  use_skin velora
}

use_skin() {
  skin="$app/VELORA_MAIN/$1.vs4"
  "$tests/places" "$skin" >"$session_dir/places"
}

# step WHAT: says what comes, for whoever reads the output.
step() {
  echo "- $*"
}

# check WHAT COMMAND...: the command has to succeed now.
check() {
  local what=$1
  shift
  "$@" && return
  echo "not so: $what" >&2
  return 1
}

not() {
  ! "$@"
}

# launch [ARGUMENT...]: starts the program without waiting for anything.
launch() {
  "$app/velora" "$@" 2>>"$session_dir/velora.log" &
  velora=$!
  session_pids+=("$velora")
}

# start_velora [ARGUMENT...]: starts the program and waits for its window.
start_velora() {
  launch "$@"
  meet_window
}

meet_window() {
  wait_for "Velora's window" find_velora
  window=$(find_window)
}

is_gone() {
  ! kill -0 "$velora" 2>/dev/null
}

# ends_well: the program ends by itself, with status 0.
ends_well() {
  local status=0
  wait_for "the program's end" is_gone
  wait "$velora" || status=$?
  check "the program ends with status 0, not $status" test "$status" = 0
}

# end_velora [SIGNAL]: a request to end is followed, at once and with status 0.
end_velora() {
  kill -"${1:-TERM}" "$velora"
  ends_well
}

caption() {
  xdotool getwindowname "${1:-$window}"
}

# caption_like PATTERN: the shell's pattern fits the caption now.
caption_like() {
  # shellcheck disable=SC2053
  [[ "$(caption)" == $1 ]]
}

# await_caption PATTERN
await_caption() {
  wait_for "a caption like $1" caption_like "$1"
}

percent() {
  caption | sed -n 's/.* \([0-9]*\)% ::.. velora *$/\1/p'
}

percent_above() {
  [ "$(percent)" -gt "$1" ]
}

# counts_on: the display has counted since the last look. A look at a moment between two tracks finds no number.
counts_on() {
  local last=$counted
  counted=$(percent)
  [ -n "$last" ] && [ -n "$counted" ] && [ "$counted" -gt "$last" ]
}

# await_progress: the display counts on from where it is.
await_progress() {
  counted=
  wait_for 'the caption to count' counts_on
}

# place_of NAME: left, top, width, height of a control.
place_of() {
  sed -n "s/^$1 //p" "$session_dir/places"
}

# point_at NAME | X Y: moves the pointer to the middle of a control, or to a place of the window.
point_at() {
  local left top width height
  if [ $# = 2 ]; then
    xdotool mousemove --window "$window" "$1" "$2"
  else
    read -r left top width height < <(place_of "$1")
    xdotool mousemove --window "$window" $((left + width / 2)) $((top + height / 2))
  fi
}

# click NAME [BUTTON [KEY]]: presses and releases, with a key held if one is named.
click() {
  point_at "$1"
  if [ -n "${3:-}" ]; then
    xdotool keydown "$3" mousedown "${2:-1}" mouseup "${2:-1}" keyup "$3"
  else
    xdotool mousedown "${2:-1}" mouseup "${2:-1}"
  fi
}

# place_of_step STEP: left and top of the window's pixel that stands for a step of the volume, 1 to 7. With the
# button held, the volume follows the pointer there.
place_of_step() {
  local left top width height twips
  read -r left top width height < <(place_of volume)
  twips=$(sed -n "s/\r$//; s/^y$1=//p" <(sed -n '/^name=volume/,/^\[/p' "$skin"))
  echo $((left + width / 2)) $((top + twips / 15))
}

# point_at_step STEP
point_at_step() {
  local left top
  read -r left top < <(place_of_step "$1")
  point_at "$left" "$top"
}

# corner: the window's place on the screen.
corner() {
  xwininfo -id "${1:-$window}" | awk '/Absolute upper-left X/ { x = $4 } /Absolute upper-left Y/ { y = $4 } END { print x, y }'
}

# crop LEFT TOP WIDTH HEIGHT FILE: a piece of the screen where the window is.
crop() {
  local x y
  read -r x y < <(corner)
  import -silent -window root -crop "$3x$4+$((x + $1))+$((y + $2))" +repage -depth 8 "$5"
}

# pixel X Y: the colour on the screen at a place of the window, as #RRGGBB.
pixel() {
  crop "$1" "$2" 1 1 "$session_dir/pixel.txt"
  grep -o '#[0-9A-F]\{6\}' "$session_dir/pixel.txt" | head -1
}

is_pixel() {
  [ "$(pixel "$1" "$2")" = "$3" ]
}

# light NUMBER COLOUR: that light shows the colour in its middle.
light_is() {
  local left top width height
  read -r left top width height < <(place_of "light$1")
  is_pixel $((left + width / 2)) $((top + height / 2)) "$2"
}

# skin_picture CONTROL KEY: the file that the skin names for it.
skin_picture() {
  local name
  name=$(awk -v name="$1" -v key="$2" -F= '{ sub(/\r$/, "") } /^\[/ { ours = 0 } $0 == "name=" name { ours = 1 }
    ours && $1 == key { print $2; exit }' "$skin")
  echo "$(dirname "$skin")/${name//\\//}"
}

# shows CONTROL [KEY [PLACE]]: the screen shows that picture of the skin (`filename`, at rest, or `filename2`,
# held down) at the place of the control, or at that of another one.
shows() {
  local left top width height background
  read -r left top width height < <(place_of "${3:-$1}")
  background=$(dirname "$skin")/$(sed -n 's/\r$//; s/^Graphic=//p' "$skin" | tr '\\' /)
  convert "$background" "$(skin_picture "$1" "${2:-filename}")" -geometry "+$left+$top" -composite \
    -crop "${width}x$height+$left+$top" +repage -alpha off "$session_dir/wanted.png"
  crop "$left" "$top" "$width" "$height" "$session_dir/seen.png"
  [ "$(compare -metric AE -fuzz 3% "$session_dir/wanted.png" "$session_dir/seen.png" null: 2>&1)" = 0 ]
}

# await_picture CONTROL [KEY [PLACE]]
await_picture() {
  wait_for "the picture of $*" shows "$@"
}

# find_dialog TITLE: the id of a dialog of the program.
find_dialog() {
  xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -1
}

has_dialog() {
  [ -n "$(find_dialog "$1")" ]
}

has_focus() {
  [ "$(xdotool getwindowfocus getwindowname)" = "$1" ]
}

# await_dialog TITLE: it is up, and takes the keys.
await_dialog() {
  wait_for "the dialog $1" has_dialog "$1"
  wait_for "the dialog $1 to take the keys" has_focus "$1"
}

# is_managed WINDOW: the window manager holds it. It takes the frame away a moment after the dialog in it has gone,
# and until then a click would fall on that.
is_managed() {
  xprop -root _NET_CLIENT_LIST | grep -Eqw "$(printf '0x%x' "$1")"
}

# answer TITLE KEY...: types at a dialog, and waits until it is gone.
answer() {
  local title=$1 dialog
  shift
  await_dialog "$title"
  dialog=$(find_dialog "$title")
  xdotool key "$@"
  wait_for "the dialog $title to close" not has_dialog "$title"
  wait_for "the frame of $title to go" not is_managed "$dialog"
}

# choose_file TITLE PATH: in a file chooser.
choose_file() {
  await_dialog "$1"
  xdotool type --delay 2 "$2"
  answer "$1" Return
}

# add_playlist NAME FILE KEY: with that key held, as a user does.
add_playlist() {
  click eject 1 "$3"
  choose_file 'Select Playlist ...' "$2"
  await_dialog Velora
  xdotool type --delay 2 "$1"
  answer Velora Return
}

# listen: records from here on into $heard.
listen() {
  heard="$session_dir/heard-${#session_pids[@]}.raw"
  start_recording "$heard"
}

sound() {
  "$tests/sound" "$@"
}

# await_sound CHECK [REFERENCE...]: until the recording passes.
await_sound() {
  local what=$1
  shift
  wait_for "sound: $what $*" sound "$what" "$heard" "$@"
}

# make_noise NAME SECONDS SEED: a track that is different at every place, NAME.mp3, and its samples NAME.raw.
make_noise() {
  sound noise "$2" "$3" | lame --silent -r -s 44.1 -m s - "$media/$1.mp3" 2>/dev/null
  mpg123 -q -s "$media/$1.mp3" >"$media/$1.raw"
}

# make_tone NAME SECONDS: a track that is as loud all the way.
make_tone() {
  sox -n -r 44100 -c 2 "$media/$1.wav" synth "$2" sine 441 gain -3
  lame --silent "$media/$1.wav" "$media/$1.mp3"
  mpg123 -q -s "$media/$1.mp3" >"$media/$1.raw"
}
