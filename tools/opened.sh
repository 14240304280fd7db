#!/bin/sh
# Opens a collection as a double click does, on a virtual display, and fails when no form of that
# name appears, or one that the desktop does not recognise as Quillbox's: opened.sh COLLECTION NAME.
# XDG_CURRENT_DESKTOP selects the desktop's way of opening it. Needs the program installed.
set -eu
. "$(dirname "$0")/display.sh"

collection=$1
name=$2

start_display
xdg-open "$collection" &
display_pids="$! $display_pids"
wait_for_form "$name"
class=$(sed -n 's/^StartupWMClass=//p' /usr/share/applications/org.quillbox.Quillbox.desktop)
for form in $(windows "$name"); do
  case "$(xprop -id "$form" WM_CLASS)" in
  *"= \"$class\", \"$class\"") exit 0 ;;
  esac
done
echo "The form is not of the class $class." >&2
exit 1
