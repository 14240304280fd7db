#!/bin/sh
# Works every form over the accessibility bus, as a screen reader does:
# accessibility.sh [PROGRAM [SAMPLE...]]
# Needs no display. Where the packages cannot be had nothing is tried, which is no failure.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the list is meant to be split
(need $packages_to_hear) || {
  echo "The forms are not tried over the accessibility bus here."
  exit 0
}
[ "$#" -gt 0 ] || {
  build release quillbox
  set -- build/release/quillbox
}
program=$(realpath "$1")
shift

. tools/display.sh
start_display
# Of the user of this machine nothing is read, and nothing is kept.
# Backups are named by the first dot of a path, so the folder has none.
home=$(mktemp -d "${TMPDIR:-/tmp}/quillbox-XXXXXX")
trap 'stop_display; rm -rf "$home"' EXIT
trap 'exit 1' INT TERM
mkdir -m 700 "$home/run"
export HOME="$home" XDG_RUNTIME_DIR="$home/run" XDG_CONFIG_HOME="$home/config" \
  XDG_DATA_HOME="$home/data" XDG_STATE_HOME="$home/state" XDG_CACHE_HOME="$home/cache"
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
export PYTHONDONTWRITEBYTECODE=1
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS

# Debian's Python, which has the bindings. What the bus itself prints is of no interest.
status=0
timeout 1800 dbus-run-session -- sh -c '"$@" 2>&3' sh \
  /usr/bin/python3 tools/accessibility_walk.py "$program" "$home" "$@" 3>&2 2>"$home/bus" ||
  status=$?
exit "$status"
