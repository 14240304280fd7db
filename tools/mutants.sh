#!/bin/sh
# Plants small mistakes at random in a copy of src/, one at a time, and prints those that no test
# notices: mutants.sh core|forms COUNT [SEED]. The copy, build/mutants, is of the last commit.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the lists are meant to be split
need $packages_to_build $packages_to_test git
copy=$PWD/build/mutants
rm -rf "$copy/src"
mkdir -p "$copy"
git archive HEAD | tar -x -C "$copy"
cd "$copy"
# Warnings are not errors here: a mistake may leave a name unused.
cmake --preset dev -B build -DCMAKE_COMPILE_WARNING_AS_ERROR=OFF >/dev/null
exec python3 tools/mutants.py "$@"
