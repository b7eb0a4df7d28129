#!/usr/bin/env bash
# Checks the code and the man pages; each check prints what is wrong.
# Usage: tools/check-code.sh CHECK, one of the procedures below
set -uo pipefail
cd "$(dirname "$0")/.."
. tools/common.sh

clang_format() { git ls-files -co --exclude-standard -- '*.cpp' '*.h' | xargs clang-format --dry-run --Werror; }
man_pages() { mandoc -T lint -W warning packaging/man/*.1; }

# What ran in the background must not change how the run itself ended.
keeps_status() { bash -euo pipefail -c '. tools/common.sh; beside /dev/null true; wait "$beside_job"'; }

# tidy_with PRESET FOLDERS [OPTION...]: clang-tidy over the files of some folders, a|b, as a build compiles them.
tidy_with() {
  # The compiler's precompiled headers are not clang's; every file includes what it needs without them.
  local folder=build/tidy-$1
  mkdir -p "$folder"
  sed -E 's/ -Winvalid-pch//; s/ -include [^ ]*cmake_pch\.hxx//' "build/$1/compile_commands.json" >"$folder/compile_commands.json"
  jq -r '.[].file' "$folder/compile_commands.json" | grep -E "^$PWD/(build/$1/)?($2)/" | grep -v cmake_pch |
    xargs -P 2 -n 1 clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p "$folder" "${@:3}" 2>/dev/null
}

# The debug build compiles several files of a room at once, so their headers are looked at once. The analyzer looks only
# into files that are compiled by themselves.
tidy() { tidy_with debug "src|demo"; }
names() {
  local only="--checks=-*,readability-identifier-naming"
  tidy_with debug tests "$only" && tidy_with release benchmarks "$only"
}
analyze() { tidy_with release "src|demo" '--checks=-*,clang-analyzer-*'; }

"$1"
