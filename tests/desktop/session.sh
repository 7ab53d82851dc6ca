# A display and a sound server of one's own, for runs of the real program. Source it, then call
# `start_session`; everything that it started ends with the shell. Each wait is for a condition.

session_pids=()

# wait_for WHAT COMMAND...: tries the command until it succeeds; after 20 seconds says what failed.
wait_for() {
  local what=$1 tries=0
  shift
  until "$@" >/dev/null 2>&1; do
    tries=$((tries + 1))
    if [ "$tries" -gt 400 ]; then
      echo "gave up waiting for $what" >&2
      return 1
    fi
    sleep 0.05
  done
}

end_session() {
  local pid
  for pid in "${session_pids[@]}"; do kill "$pid" 2>/dev/null; done
  wait 2>/dev/null
  rm -rf "$session_dir"
}

start_display() {
  # The server chooses a free number and tells it.
  Xvfb -displayfd 3 -screen 0 "${SESSION_SCREEN:-1280x800x24}" -nolisten tcp 3>"$session_dir/display" \
    >/dev/null 2>&1 &
  session_pids+=($!)
  wait_for 'the display' test -s "$session_dir/display" || return 1
  export DISPLAY=":$(cat "$session_dir/display")"
  unset WAYLAND_DISPLAY
  export QT_QPA_PLATFORM=xcb
}

start_sound() {
  # A sink that the recordings are made from: CD quality, no sound card needed.
  pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 \
    -L "module-null-sink sink_name=out format=s16le rate=44100 channels=2" \
    -L "module-native-protocol-unix socket=$session_dir/native auth-anonymous=1" \
    >"$session_dir/pulse.log" 2>&1 &
  sound_pid=$!
  session_pids+=("$sound_pid")
  export PULSE_SERVER="unix:$session_dir/native"
  wait_for 'the sound server' pactl info
}

start_window_manager() {
  # Without a file of its own it would complain in a window.
  echo '<openbox_config xmlns="http://openbox.org/3.4/rc"/>' >"$session_dir/openbox.xml"
  openbox --config-file "$session_dir/openbox.xml" >/dev/null 2>&1 &
  session_pids+=($!)
  wait_for 'the window manager' sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
}

# start_session [display] [sound] [manager]
start_session() {
  local part
  session_dir=$(mktemp -d)
  trap end_session EXIT
  export HOME="$session_dir/home" XDG_RUNTIME_DIR="$session_dir/runtime"
  mkdir -p "$HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  unset DBUS_SESSION_BUS_ADDRESS
  for part in "$@"; do
    case "$part" in
      display) start_display || return 1 ;;
      sound) start_sound || return 1 ;;
      manager) start_window_manager || return 1 ;;
    esac
  done
}

# start_recording FILE [OPTION]: records the sink as s16le stereo at 44.1 kHz (raw, unless the option says
# otherwise) until the session ends, and returns once it delivers.
start_recording() {
  parec -d out.monitor --format=s16le --rate=44100 --channels=2 --latency-msec=20 "${2:---raw}" "$1" &
  recording_pid=$!
  session_pids+=("$recording_pid")
  wait_for 'the recording' test -s "$1"
}

# take_picture FILE: the whole screen as PNG.
take_picture() {
  import -silent -window root "$1"
}

# find_window: the id of Velora's window, once it is mapped.
find_window() {
  xdotool search --onlyvisible --class velora 2>/dev/null | head -1
}

# find_velora: true once the window is mapped.
find_velora() {
  [ -n "$(find_window)" ]
}
