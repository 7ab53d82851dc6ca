# Lets a script in bash run in a session of the tests' own: source it with the parts of the session
# in `session_parts`. What the script starts ends with it.
[ -n "${SESSION_DIRECTORY:-}" ] ||
  exec "$(dirname "${BASH_SOURCE[0]}")/../tests/desktop/session.py" $session_parts -- "$0" "$@"
session_dir=$SESSION_DIRECTORY

# wait_for WHAT COMMAND...: tries the command until it succeeds; after a minute says what failed,
# and what the last try said.
wait_for() {
  local what=$1 deadline=$((SECONDS + 60))
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
