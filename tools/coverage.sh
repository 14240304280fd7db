#!/bin/sh
# Runs the tests of the core, counts which lines they run, and prints each line of the core, headers
# included, that no test runs. Fails if there is one.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the lists are meant to be split
need $packages_to_build $packages_to_test $packages_to_cover
forget_counts() {
  [ ! -d build/coverage ] || find build/coverage -name '*.gcda' -delete
}
forget_counts
build coverage
forget_counts # the build asks the tests for their names
ctest --preset coverage -j "$(nproc)" --output-on-failure

report=build/coverage/coverage.xml
gcovr --root . --filter src/ --object-directory build/coverage --exclude-throw-branches \
  --print-summary --xml-pretty --output $report \
  build/coverage/CMakeFiles/quillbox_core.dir build/coverage/tests

unrun=build/coverage/unrun
awk -F '"' '
  function value(name, i) {
    for (i = 1; i < NF; i += 2) if ($i ~ " " name "=$") return $(i + 1)
  }
  /<class / { file = value("filename") }
  /<line / && value("hits") == 0 { print file, value("number") }
' $report >$unrun

while read -r file line; do
  printf '%s:%s: %s\n' "$file" "$line" "$(sed -n "${line}p" "$file" | sed 's/^ *//')"
done <$unrun
[ ! -s $unrun ]
