#!/bin/sh
# Plants small mistakes at random in a copy of src/, one at a time, and prints those that no test
# notices: mutants.sh core|forms COUNT [SEED]. The copy, build/mutants, is of the last commit.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the lists are meant to be split
need $packages_to_build $packages_to_test $packages_to_sanitize git lld binutils
copy=$PWD/build/mutants
rm -rf "$copy/src"
mkdir -p "$copy"
git archive HEAD | tar -x -C "$copy"
cd "$copy"
# What is built hundreds of times is built and run as fast as possible. Warnings are not errors: a
# mistake may leave a name unused.
cmake --preset dev -B build -DCMAKE_CXX_COMPILER=clang++ -DQUILLBOX_QUICK=ON -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
  -DCMAKE_COMPILE_WARNING_AS_ERROR=OFF -DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld >/dev/null
cmake --preset dev -B recording -DQUILLBOX_REACHED=ON -DCMAKE_CXX_FLAGS_DEBUG=-g1 >/dev/null
exec python3 tools/mutants.py "$@"
