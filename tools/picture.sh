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
"$program" "$collection" &
pids="$! $pids"

window() { timeout 30 xdotool search --sync --onlyvisible --name "$1" 2>/dev/null | head -n 1; }

box=$(window '^QBX V')
xdotool windowactivate --sync "$box"
xdotool key Return
window 'Manager \(|Collection \(|^Quillbox V' >/dev/null
sleep 1 # until the window manager and the program have drawn
import -window root "$picture"
