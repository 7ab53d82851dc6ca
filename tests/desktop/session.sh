# A display and a sound server of one's own, for runs of the real program. Source it, then call
# `start_session`; everything that it started ends with the shell. Each wait is for a condition.

session_pids=()

# wait_for WHAT COMMAND...: tries the command until it succeeds; after a minute says what failed, and what the
# last try said.
wait_for() {
  local what=$1 deadline=$((SECONDS + ${SESSION_PATIENCE:-60}))
  shift
  until "$@" >/dev/null 2>"$session_dir/last_try"; do
    if [ "$SECONDS" -ge "$deadline" ]; then
      echo "gave up waiting for $what" >&2
      cat "$session_dir/last_try" >&2
      return 1
    fi
    sleep 0.05
  done
}

# Ends what still runs: with a request first, by force where that isn't heard.
end_processes() {
  local pid tries=0
  for pid in "${session_pids[@]}"; do kill "$pid" 2>/dev/null; done
  for pid in "${session_pids[@]}"; do
    while kill -0 "$pid" 2>/dev/null && [ "$tries" -lt 40 ]; do
      tries=$((tries + 1))
      sleep 0.05
    done
    kill -KILL "$pid" 2>/dev/null
  done
  wait 2>/dev/null
}

end_session() {
  local status=$?
  trap - ERR EXIT
  set +e
  [ "$status" = 0 ] || [ -z "${on_failure:-}" ] || "$on_failure"
  end_processes
  rm -rf "$session_dir"
  exit "$status"
}

start_display() {
  # The server chooses a free number and tells it. It must not start afresh whenever its last client leaves.
  Xvfb -displayfd 3 -screen 0 "${SESSION_SCREEN:-1280x800x24}" -nolisten tcp -noreset 3>"$session_dir/display" \
    >/dev/null 2>&1 &
  display_pid=$!
  session_pids+=("$display_pid")
  wait_for 'the display' test -s "$session_dir/display" || return 1
  export DISPLAY=":$(cat "$session_dir/display")"
  unset WAYLAND_DISPLAY
  export QT_QPA_PLATFORM=xcb
}

start_sound() {
  # A sink that the recordings are made from: CD quality, no sound card needed. Without rewinds, since a
  # recorder does not get again what the sink makes anew. Without shared memory, since the server ends by an
  # assertion of its own now and then where a recorder is handed a player's memory.
  pulseaudio -n --disable-shm="${SESSION_WITHOUT_SHM:-yes}" --log-level=error --daemonize=no \
    --use-pid-file=no --exit-idle-time=-1 \
    -L "module-null-sink sink_name=out format=s16le rate=44100 channels=2 norewinds=1" \
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
  openbox --config-file "$session_dir/openbox.xml" >"$session_dir/openbox.log" 2>&1 &
  manager_pid=$!
  session_pids+=("$manager_pid")
  wait_for 'the window manager' sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
}

# start_session [display] [sound] [manager]
start_session() {
  local part
  session_dir=$(mktemp -d)
  trap end_session EXIT
  export HOME="$session_dir/home" XDG_RUNTIME_DIR="$session_dir/runtime"
  unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_STATE_HOME
  mkdir -p "$HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  # No message bus: a program that finds none named would start one that outlives the session.
  export DBUS_SESSION_BUS_ADDRESS="unix:path=$XDG_RUNTIME_DIR/no-bus"
  for part in "$@"; do
    case "$part" in
      display) start_display || return 1 ;;
      sound) start_sound || return 1 ;;
      manager) start_window_manager || return 1 ;;
    esac
  done
}

# A message bus of the session's own, with that of assistive technology. It starts nothing by itself, or a real
# desktop's file chooser might come up.
start_bus() {
  export DBUS_SESSION_BUS_ADDRESS="unix:path=$session_dir/bus"
  cat >"$session_dir/bus.conf" <<CONF
<busconfig>
  <type>session</type>
  <listen>$DBUS_SESSION_BUS_ADDRESS</listen>
  <policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>
CONF
  dbus-daemon --config-file="$session_dir/bus.conf" --nofork >>"$session_dir/bus.log" 2>&1 &
  session_pids+=($!)
  wait_for 'the bus' test -S "$session_dir/bus"
  /usr/libexec/at-spi-bus-launcher >>"$session_dir/bus.log" 2>&1 &
  session_pids+=($!)
  wait_for 'the bus of assistive technology' dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus \
    org.a11y.Bus.GetAddress
}

# start_recording FILE [OPTION]: records the sink (the one in `sink`, or the session's own) as s16le stereo at
# 44.1 kHz (raw, unless the option says otherwise) until the session ends, and returns once it delivers.
start_recording() {
  parec -d "${sink:-out}.monitor" --format=s16le --rate=44100 --channels=2 --latency-msec=20 "${2:---raw}" "$1" \
    2>>"$session_dir/recording.log" &
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
