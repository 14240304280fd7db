#!/bin/sh
# Writes the figures of docs/performance.md from one run of the benchmark: bench-report.sh
# Or from the saved output of a run: bench-report.sh FILE
set -eu
saved=${1:-}
case "$saved" in
"" | /*) ;;
*) saved=$PWD/$saved ;;
esac
cd "$(dirname "$0")/.."
. tools/setup.sh
. tools/display.sh

if [ -z "$saved" ]; then
  # shellcheck disable=SC2086 # the lists are meant to be split
  need $packages_to_build $packages_to_bench python3
  build bench
  saved=build/release/bench/report.txt
  build/release/bench/bench >"$saved" || {
    cat "$saved" >&2
    exit 1
  }
  if command -v tellico >/dev/null; then
    # shellcheck disable=SC2086 # the list is meant to be split
    need $packages_to_picture
    start_display
    echo >>"$saved"
    tools/bench_others.py build/release >>"$saved"
  fi
fi
tools/bench_table.py "$saved" docs/performance.md
git diff --stat -- docs/performance.md
