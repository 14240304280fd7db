#!/bin/sh
# The whole program for Windows: builds it and its packages with Debian's cross compiler, and runs
# every test and the program itself under wine. The packages for users are then in
# build/windows-package. Without Debian's packages nothing is tried, which is no failure.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
export QUILLBOX_QT_WINDOWS="${QUILLBOX_QT_WINDOWS:-$PWD/build/windows-qt}"

echo "On two busy cores the toolkit took an hour, and 1.5 GB in $QUILLBOX_QT_WINDOWS, once;"
echo "the program and its tests took a quarter of an hour, wine 20 minutes, and 2 GB in build/."

# shellcheck disable=SC2086 # the lists are meant to be split
(need $packages_to_windows $packages_to_build $packages_to_picture) || {
  echo "Nothing is tried for Windows here."
  exit 0
}
tools/windows-qt.sh "$QUILLBOX_QT_WINDOWS"

build windows
rm -rf build/windows-package
(cd build/windows && cpack -B ../windows-package >/dev/null)
build windows-tests
build release
tools/windows-try.sh
