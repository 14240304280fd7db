# Sourced, after display.sh, by what works with the program as a user does: with keys, and without
# waiting longer than it takes.

# waits WHAT COMMAND...: until the command succeeds; after a minute there is a picture of what is
# there instead.
waits() {
  what=$1
  shift
  tries=0
  until "$@"; do
    tries=$((tries + 1))
    if [ "$tries" -gt 300 ]; then
      import -window root lost.png
      echo "$what; what is on the screen is in $PWD/lost.png." >&2
      exit 1
    fi
    sleep 0.2
  done
}
has_keys() {
  for window in $(windows "$1"); do
    xdotool windowfocus --sync "$window" 2>/dev/null || continue
    [ "$(xdotool getwindowfocus 2>/dev/null)" = "$window" ] && return 0
  done
  return 1
}
is_gone() { [ -z "$(windows "$1")" ]; }

shown() {
  waits "There is no window $1" has_keys "$1"
  sleep 0.5 # the display has given it the keys; until the program itself knows
}
keys() { xdotool key --delay 30 "$@"; }
types() { xdotool type --delay 30 "$1"; }
# answer TITLE KEY...: a box with that title is answered and goes.
answer() {
  box=$1
  shown "$box"
  shift
  keys "$@"
  waits "$box stays" is_gone "$box"
}
