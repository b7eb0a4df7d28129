#!/usr/bin/env bash
# Runs a test program of the build for Windows under Wine; ends with its status, or with 77 where that is not permitted.
# Usage: tools/windows-test.sh NAME [ARGUMENT...]
set -euo pipefail
cd "$(dirname "$0")/.."
exec tools/windows-machine.sh --read "$PWD" \
  sh -c 'cd "$1" && shift && exec wine "$@"' sh "$PWD" "build/windows/bin/$1.exe" "${@:2}" </dev/null
