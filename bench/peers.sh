# What others of the kind cost, for bench/run, which has the rest: two players of the distribution
# with their skinned windows, playing the same track in the same session.

# start_audacious TRACK, start_qmmp TRACK: in the session's own home.
start_audacious() {
  local registry="$HOME/.config/audacious/plugin-registry"
  # Its first run writes the list of its parts, in which the skinned window is chosen then.
  audacious -Q -H >/dev/null 2>&1 &
  program=$!
  wait_for 'its list of parts' sh -c "audtool version"
  kill "$program"
  wait "$program" 2>/dev/null
  wait_for 'its list of parts' test -s "$registry"
  awk '/^[a-z]+ \// { part = $0 }
       /^enabled/ && part ~ /^iface/ { $2 = part ~ /skins-qt/ ? 1 : 0 }
       /^enabled/ && part ~ /^output/ { $2 = part ~ /pulse/ ? 1 : 0 }
       { print }' "$registry" >"$registry.new" && mv "$registry.new" "$registry"
  audacious -Q "$1" >/dev/null 2>&1 &
  program=$!
}

start_qmmp() {
  mkdir -p "$HOME/.qmmp"
  printf '[Output]\ncurrent_plugin=pulse\n[Ui]\ncurrent_plugin=skinned\n%s\n' \
    "$(printf '[Skinned]\npl_visible=false\neq_visible=false')" >"$HOME/.qmmp/qmmprc"
  qmmp >/dev/null 2>&1 &
  program=$!
  wait_for 'its window' has_window
  qmmp "$1" >/dev/null 2>&1
  wait_for 'its list' sh -c 'qmmp --pl-dump | grep -q .'
  qmmp --pl-play 1 1 >/dev/null 2>&1
}

is_heard() { pactl list sink-inputs | grep -q "Corked: no"; }

# measure_peer NAME SPENT WAKES PSS: the same figures of a peer beside those of ours, as rows.
measure_peer() {
  local name=$1 spent wakes
  if ! command -v "$name" >/dev/null; then
    row "playing, all visible: ms a minute; $name, skinned" "$(a_minute "$2")" 'not installed'
    return
  fi
  "start_$name" "$track"
  wait_for 'its sound' is_heard
  sleep 4
  read -r spent wakes < <("$here/process_cost" "$program" "$seconds")
  row "playing, all visible: ms a minute; $name, skinned" "$(a_minute "$2")" "$(a_minute "$spent")"
  row "playing, all visible: wake-ups a second; $name" "$3" "$wakes"
  row "playing: PSS in kB; $name" "$4" "$(pss_kb "$program")"
  finish
}
