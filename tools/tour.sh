#!/bin/sh
# Works the program as a user does, with keys on a virtual display, the same on every platform:
# tour.sh FOLDER COMMAND... copies the samples into FOLDER, opens each of them with COMMAND, and
# writes, sorts, searches, lists, exports and fills a catalogue. The resulting files stay in FOLDER.
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
. "$here/tools/display.sh"
. "$here/tools/keys.sh"

folder=$1
shift
program=$*
mkdir -p "$folder"
cd "$folder"
cp "$here"/samples/*.* .
cp -R "$here/samples/media" media
cp media/Doorbell.wav "media/Another door.wav"
start_display

has_size() { [ "$(stat -c %s "$1" 2>/dev/null)" = "$2" ]; }
# choose TITLE FILE: in a dialog that asks for a file.
choose() {
  shown "$1"
  types "$2"
  answer "$1" Return
}
# grows FILE BYTES COMMAND...
grows() {
  size=$(($(stat -c %s "$1") + $2))
  file=$1
  shift 2
  "$@"
  waits "$file does not grow" has_size "$file" "$size"
}

begin() {
  # shellcheck disable=SC2086 # the command and its arguments
  $program "$@" >>said.log 2>&1 &
  started=$!
  display_pids="$started $display_pids"
  answer '^QBX V1\.71$' Return
}
end() {
  answer '^Quillbox V1\.71$' alt+F4
  wait "$started" || true
}
# visit FILE: opens it as a double click does; open FILE: from the start screen.
visit() {
  form="Collection Manager \\($1\\)\$"
  begin "$1"
  shown "$form"
}
open() {
  form="File Collection \\($1\\)\$"
  shown '^Quillbox V1\.71$'
  keys ctrl+o
  choose '^Open Collection$' "$1"
  shown "$form"
}
leave() { answer "$form" ctrl+w; }
sort_by() { # the keys of the boxes to tick and of the button
  keys alt+e o
  shown '^Sorting Options$'
  keys "$@"
  answer '^Quillbox$' Return
  shown "$form"
}
write_new() {
  keys ctrl+n
  types "$1"
  keys ctrl+s
}
print='^QBX List Print$'
list_as_text() {
  keys ctrl+p
  shown "$print"
  keys alt+f
  answer "$print" Return
  choose '^Print to FileName$' "$1"
  waits "There is no $1" test -s "$1"
  shown "$form"
}
load_with() { # any file of the folder
  keys alt+l
  choose '^Wave Collection$' "$1"
}
export_as() {
  keys ctrl+shift+e
  choose '^File Save As$' "$1"
  answer '^Quillbox$' Return
  shown "$form"
}

begin
shown '^Quillbox V1\.71$'
keys ctrl+n
shown '^New Collection$'
answer '^New Collection$' Escape
end

visit jazz.MCS
keys ctrl+Next
grows jazz.MCS 2372 write_new 'Zoot Sims'
sort_by alt+a alt+b
keys ctrl+f
shown '^Music Search$'
types 'Zoot Sims'
answer '^Music Search$' Return
shown "$form"
keys ctrl+p
shown "$print"
answer "$print" Escape
shown "$form"
list_as_text music.txt
export_as songs.csv
keys F9
leave
end

visit tapes.VCS
grows tapes.VCS 678 write_new 'A new tape'
list_as_text video.txt
export_as movies.csv
leave
end

visit longbox.CCS
grows longbox.CCS 640 write_new 'A new comic'
list_as_text comics.txt
export_as notes.csv
leave
end

visit disks.SCS
grows disks.SCS 662 write_new 'A new disk'
list_as_text software.txt
export_as programs.csv
leave
end

visit shelf.BCS
grows shelf.BCS 224 write_new 'A new author'
list_as_text books.txt
leave
end

begin
open tunes.ICS
list_as_text tunes.txt
leave
open pictures.GCS
list_as_text pictures.txt
leave
open songs.MPS
list_as_text songs.txt
leave
open sounds.WCS
list_as_text sounds.txt
# From here on the loaded folder is the current one.
grows sounds.WCS 328 load_with media/Doorbell.wav
sort_by alt+b
leave
end
