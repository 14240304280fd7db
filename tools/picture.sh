#!/bin/sh
# Starts the program on a virtual display, closes its start-up box and takes a picture of what is
# then shown: picture.sh PROGRAM COLLECTION PNG
set -eu
. "$(dirname "$0")/display.sh"

program=$1
collection=$2
picture=$3

start_display
"$program" "$collection" &
display_pids="$! $display_pids"
wait_for_form 'Manager \(|Collection \(|^Quillbox V'
sleep 1 # until the window manager and the program have drawn
import -window root "$picture"
