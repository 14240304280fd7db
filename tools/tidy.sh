#!/bin/sh
# Runs clang-tidy on the sources with the checks of .clang-tidy. Needs a configured build/dev.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
# shellcheck disable=SC2086 # the list is meant to be split
need $packages_to_tidy
git ls-files 'src/*.cpp' | xargs -P "$(nproc)" -n 4 clang-tidy -p build/dev --quiet \
  --warnings-as-errors='*'
