#!/bin/sh
# Checks the rules of the project that a compiler does not.
set -eu
cd "$(dirname "$0")/.."
failed=0
rule() {
  [ -z "$2" ] || {
    printf '%s:\n%s\n\n' "$1" "$2" >&2
    failed=1
  }
}

rule "Not formatted" "$(git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror 2>&1 |
  grep -F 'error:' || true)"

rule "Dialogs and printers belong to src/platform/qt" "$(git grep -nE \
  '\b(QMessageBox|QFileDialog|QInputDialog|QPrint[A-Za-z]*|QPageSetupDialog)\b' \
  -- 'src/*' ':!src/platform/qt/*' || true)"

rule "Only forms and src/platform/qt know the windowing platform" "$(git grep -nE \
  '#include <Q' -- 'src/*' ':!src/platform/qt/*' ':!src/forms/*' ':!src/panel/*' ':!src/main.cpp' |
  grep -vE '^src/[a-z]+/frm' || true)"

# Configured, never built. Where folders are compiled together the commands do not name each file.
cmake --preset dev -B build/gates >/dev/null
commands=build/gates/compile_commands.json
rule "The core has an include path to the windowing platform" "$(grep -F 'quillbox_core.dir' \
  $commands | grep -iE 'qt6|QT_' || true)"

rule "An include points upwards, across or round" "$(tools/floors.py $commands || true)"

rule "Tests that are not built" "$(git ls-files 'tests/*_test.cpp' | while read -r source; do
  grep -qF "$source" $commands || echo "$source"
done)"

exit $failed
