#!/bin/sh
# Builds the release program, checks everything installed with it, packages it for Debian in
# build/package and, as root, installs the package, opens a collection with it and removes it.
set -eu
umask 022
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the lists are meant to be split
need $packages_to_build $packages_to_picture $packages_to_package
build release

id=org.quillbox.Quillbox
work=$(mktemp -d)
share=$work/stage/usr/share
installed=
apt() { # waits for whoever else is installing something
  DEBIAN_FRONTEND=noninteractive apt-get -y -qq -o DPkg::Lock::Timeout=300 "$@" >"$work/apt" 2>&1
}
finish() {
  [ -z "$installed" ] || apt remove quillbox || true
  rm -rf "$work"
}
trap finish EXIT
trap 'exit 1' INT TERM
# The user's own file associations must not matter.
export XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work"
export XDG_CURRENT_DESKTOP=

fail() {
  echo "$*" >&2
  exit 1
}
# same WHAT IS WANTED
same() { [ "$2" = "$3" ] || fail "$1: \"$2\" where \"$3\" is wanted"; }
in_metainfo() { xmllint --xpath "string($1)" packaging/$id.metainfo.xml; }

# The type of a file; content-type uses name and contents, fast-content-type only the name.
type_of() { gio info -a "standard::$1" "$2" | sed -n 's/^ *standard::[a-z-]*: //p'; }

# Each collection is recognised by its name, in any case, and as far as possible by its contents
# alone; calendars, which share an extension with a kind, stay calendars.
check_types() {
  while read -r ending kind; do
    type=application/x-quillbox-$kind
    set -- samples/*."$ending"
    for collection in "$@" tests/data/*."$ending"; do
      same "$collection" "$(type_of content-type "$collection")" "$type"
      same "$collection by name" "$(type_of fast-content-type "$collection")" \
        "$(by_name "$ending" "$type")"
      small=$work/small.$(echo "$ending" | tr '[:upper:]' '[:lower:]')
      cp "$collection" "$small"
      same "$collection in small letters" "$(type_of content-type "$small")" "$type"
      cp "$collection" "$work/unnamed"
      same "$collection by content" "$(type_of content-type "$work/unnamed")" \
        "$(by_content "$collection" "$type")"
    done
  done <<END
MCS music
VCS video
CCS comics
SCS software
BCS books
WCS wave
ICS midi
GCS graphic
MPS mp3
END
  for calendar in "$work/calendar.ics" "$work/CALENDAR.VCS"; do
    printf 'BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n' >"$calendar"
    same "$calendar" "$(type_of content-type "$calendar")" text/calendar
  done
}
# By their names alone, the two stay what they are everywhere else.
by_name() {
  case "$1" in
  VCS | ICS) echo text/calendar ;;
  *) echo "$2" ;;
  esac
}
# A music collection without items has the bytes of any kind.
by_content() {
  case "$1" in
  */type1.MCS) echo application/x-quillbox-collection ;;
  *.MCS) echo "$2" ;;
  *) echo application/x-quillbox-collection ;;
  esac
}

# The installed files.
DESTDIR=$work/stage cmake --install build/release --prefix /usr >/dev/null
desktop-file-validate "$share/applications/$id.desktop"
appstreamcli validate --no-net "$share/metainfo/$id.metainfo.xml"
find "$share" \( -name '*.xml' -o -name '*.svg' \) -exec xmllint --noout {} +
for page in quillbox quillbox-cli; do
  complaints=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z \
    "$share/man/man1/$page.1" 2>&1 >/dev/null)
  same "Complaints about the page of $page in the manual" "$complaints" ""
done

# Completion: each shell reads its own.
bash -n "$share/bash-completion/completions/quillbox-cli"
zsh -n "$share/zsh/vendor-completions/_quillbox-cli"
fish -n "$share/fish/vendor_completions.d/quillbox-cli.fish"

# One icon for the program and one for each type, one list of what a double click opens, and a
# picture for each place where programs are offered.
for icon in $(xmllint --xpath '//*[local-name()="icon"]/@name' "$share/mime/packages/$id.xml" |
  sed 's/.*="\(.*\)"/\1/'); do
  [ -n "$(find "$share/icons" -name "$icon.svg")" ] || fail "There is no icon $icon."
done
opened=$(sed -n 's/^MimeType=//p' packaging/$id.desktop | tr ';' ' ' | sed 's/ $//')
same "The types in the metadata" \
  "$(xmllint --xpath '//mediatype/text()' packaging/$id.metainfo.xml | xargs)" "$opened"
for picture in $(xmllint --xpath '//image/text()' packaging/$id.metainfo.xml); do
  [ -f "docs/forms/${picture##*/}" ] || fail "There is no docs/forms/${picture##*/}."
done

# The same version and date everywhere.
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/release/CMakeCache.txt)
date=$(in_metainfo '//release[1]/@date')
same "The program's version" "$(build/release/quillbox --version)" "Quillbox $version"
same "The version in the metadata" "$(in_metainfo '//release[1]/@version')" "$version"
same "The man page" "$(grep '^\.TH' packaging/quillbox.1)" \
  ".TH QUILLBOX 1 \"$date\" \"Quillbox $version\" \"User Commands\""
same "The command line's version" "$(build/release/quillbox-cli --version)" "quillbox-cli $version"
same "The page of the command line" "$(grep '^\.TH' packaging/quillbox-cli.1)" \
  ".TH QUILLBOX-CLI 1 \"$date\" \"Quillbox $version\" \"User Commands\""
same "CHANGELOG.md" "$(grep -m 1 '^## \[[0-9]' CHANGELOG.md)" "## [$version] - $date"
same "The package's changelog" \
  "$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)" "$version-1"

# Types besides those that every desktop has.
cp /usr/share/mime/packages/freedesktop.org.xml "$share/mime/packages/"
complaints=$(XDG_DATA_DIRS=$share update-mime-database "$share/mime" 2>&1)
same "Complaints about the types" "$complaints" ""
(
  export XDG_DATA_DIRS="$share"
  check_types
)

# The package.
rm -rf build/package
cpack -G DEB --config build/release/CPackConfig.cmake -B build/package >/dev/null 2>"$work/cpack" ||
  fail "$(cat "$work/cpack")"
set -- build/package/*.deb
package=$PWD/$1
lintian --allow-root --fail-on error,warning "$package"

# On this machine.
if [ "$(id -u)" -ne 0 ]; then
  echo "Only root can install $package; it was not tried."
  exit 0
fi
! is_installed quillbox || fail "Quillbox is installed here already; this would take it away."
installed=yes
apt install --no-install-recommends "$package" || fail "$(cat "$work/apt")"
same "The installed program's version" "$(quillbox --version)" "Quillbox $version"
check_types
for type in $opened; do
  same "What opens $type" "$(xdg-mime query default "$type")" $id.desktop
done
# Both ways there are: a desktop's own, and the generic one.
cp samples/jazz.MCS "$work/my jazz.MCS"
for desktop in GNOME ''; do
  XDG_CURRENT_DESKTOP=$desktop dbus-run-session -- tools/opened.sh "$work/my jazz.MCS" \
    '^Music Collection Manager \(my jazz\.MCS\)$'
done
# Without a display.
env -u DISPLAY -u WAYLAND_DISPLAY quillbox-cli export "$work/my jazz.MCS" -o "$work/jazz.csv"
same "An import of what was exported" \
  "$(quillbox-cli import "$work/my jazz.MCS" "$work/jazz.csv")" "nothing to change"
apt remove quillbox || fail "$(cat "$work/apt")"
installed=
! is_installed quillbox || fail "Quillbox is still installed."
[ ! -e /usr/share/applications/$id.desktop ] || fail "Its entry in the menus is still there."
echo "Packed and tried: $package"
