# Sourced by scripts that need windows and have no display of their own.

# A virtual display with a window manager, for everything started from here on. It ends with the
# script, and so does every process in $display_pids.
start_display() {
  display_work=$(mktemp -d)
  display_pids=
  trap stop_display EXIT INT TERM
  mkfifo "$display_work/display"
  Xvfb -displayfd 3 -screen 0 1024x700x24 3>"$display_work/display" >/dev/null 2>&1 &
  display_pids="$!"
  read -r number <"$display_work/display"
  export DISPLAY=":$number"
  unset WAYLAND_DISPLAY
  openbox >/dev/null 2>&1 &
  display_pids="$! $display_pids"
  # A window that appears while the window manager starts may never be shown.
  tries=0
  until xdotool get_num_desktops >/dev/null 2>&1 || [ "$tries" -gt 100 ]; do
    tries=$((tries + 1))
    sleep 0.1
  done
}

stop_display() {
  # shellcheck disable=SC2086 # the list is meant to be split
  [ -z "$display_pids" ] || kill $display_pids 2>/dev/null || true
  rm -rf "$display_work"
}

# The visible windows of that name. Finding none is no failure: windows come and go, and the window
# manager may not have started yet.
windows() { xdotool search --onlyvisible --name "$1" 2>/dev/null || true; }

# wait_for_form NAME: closes the start-up box, and fails when no form of that name appears.
wait_for_form() {
  tries=0
  until [ -n "$(windows "$1")" ]; do
    tries=$((tries + 1))
    if [ "$tries" -gt 120 ]; then
      echo "The program showed no form." >&2
      return 1
    fi
    for box in $(windows '^QBX V'); do
      xdotool windowfocus "$box" key Return 2>/dev/null || true
    done
    sleep 0.5
  done
}
