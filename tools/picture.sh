#!/bin/sh
# Starts the program on a virtual display, closes its start-up box and takes a picture of what is
# shown then: picture.sh PROGRAM COLLECTION PNG
set -eu

program=$1
collection=$2
picture=$3
work=$(mktemp -d)
pids=
stop() {
  # shellcheck disable=SC2086 # the list is meant to be split
  [ -z "$pids" ] || kill $pids 2>/dev/null || true
  rm -rf "$work"
}
trap stop EXIT INT TERM

mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1024x700x24 3>"$work/display" >/dev/null 2>&1 &
pids="$!"
read -r number <"$work/display"
export DISPLAY=":$number"
openbox >/dev/null 2>&1 &
pids="$! $pids"
# A window that appears while the window manager starts may never be shown.
tries=0
until xdotool get_num_desktops >/dev/null 2>&1 || [ "$tries" -gt 100 ]; do
  tries=$((tries + 1))
  sleep 0.1
done
"$program" "$collection" &
pids="$! $pids"

# The windows of that name that are on screen. None is no failure: windows come and go, and the
# window manager may not be up yet.
windows() { xdotool search --onlyvisible --name "$1" 2>/dev/null || true; }

tries=0
until [ -n "$(windows 'Manager \(|Collection \(|^Quillbox V')" ]; do
  tries=$((tries + 1))
  if [ "$tries" -gt 120 ]; then
    echo "The program showed no form." >&2
    exit 1
  fi
  for box in $(windows '^QBX V'); do
    xdotool windowfocus "$box" key Return 2>/dev/null || true
  done
  sleep 0.5
done
sleep 1 # until the window manager and the program have drawn
import -window root "$picture"
