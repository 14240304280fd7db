#!/bin/sh
# Fuzzes the core: tools/fuzz.sh [SECONDS [TARGET...]] runs each target that long, 20 seconds each
# unless told. What is learnt is kept in build/fuzz/corpus and gone on with the next time; an input
# that fails is kept in build/fuzz/findings and ends the run.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the lists are meant to be split
need $packages_to_build $packages_to_fuzz
build fuzz

seconds=${1:-20}
[ $# -eq 0 ] || shift
[ $# -gt 0 ] || set -- collection csv json media_types print text

for target in "$@"; do
  learnt=build/fuzz/corpus/$target
  mkdir -p "$learnt" build/fuzz/findings
  echo "$target:"
  log=build/fuzz/$target.log
  build/fuzz/fuzz/fuzz_"$target" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
    -print_final_stats=1 -artifact_prefix=build/fuzz/findings/"$target"- \
    "$learnt" fuzz/corpus/"$target" 2>"$log" || {
    tail -n 60 "$log" >&2
    exit 1
  }
  grep -E 'DONE|number_of_executed_units|peak_rss' "$log"
done
