#!/bin/sh
# Fuzzes the core: tools/fuzz.sh [SECONDS [TARGET...]] runs each target that long, 20 seconds by
# default, as many at a time as there are processors. The corpus is kept in build/fuzz/corpus for
# the next run; an input that fails is kept in build/fuzz/findings and ends its target.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

# shellcheck disable=SC2086 # the lists are meant to be split
need $packages_to_build $packages_to_sanitize
build fuzz fuzz_targets

seconds=${1:-20}
[ $# -eq 0 ] || shift
[ $# -gt 0 ] || set -- collection csv json media_types print text

# One target: the first argument is its name, the second the number of seconds.
# shellcheck disable=SC2016 # it is expanded where it runs
run='
  learnt=build/fuzz/corpus/$1
  log=build/fuzz/$1.log
  mkdir -p "$learnt" build/fuzz/findings
  build/fuzz/fuzz/fuzz_"$1" -max_total_time="$2" -max_len=4096 -timeout=10 \
    -print_final_stats=1 -artifact_prefix=build/fuzz/findings/"$1"- \
    "$learnt" fuzz/corpus/"$1" 2>"$log" || {
    tail -n 60 "$log" >&2
    exit 1
  }
  echo "$1:
$(grep -E "DONE|number_of_executed_units|peak_rss" "$log")"
'
printf '%s\n' "$@" | xargs -P "$(nproc)" -I TARGET sh -c "$run" fuzz TARGET "$seconds"
