#!/usr/bin/env bash
# Installs and uninstalls the Windows packages in build/packages under Wine. Prints a line per check, and a last line
# "COUNTS passed failed skipped".
# Usage: tools/check-setup.sh PROGRAMS-OF-THIS-SYSTEM
set -euo pipefail
programs=$(readlink -f "$1")
cd "$(dirname "$0")/.."
. tools/common.sh

version=$(project_version)
packages=$PWD/build/packages
work=$PWD/build/windows/setup
rm -rf "$work"
mkdir -p "$work"
unzip -q "$packages/oravin-$version-windows.zip" -d "$work"
"$programs/oravin-demo" "$work/sample" >/dev/null

status=0
tools/windows-machine.sh --read "$PWD/tools" --read "$packages" --read "$work" --write "$work/sample" \
  "$PWD/tools/check-setup-inside.sh" "$packages/oravin-$version-windows-setup.exe" "$work/oravin-$version-windows" "$work/sample" \
  "$version" >"$work/log" || status=$?
if [ $status -eq 77 ]; then
  say "skipped the installer on Windows"
  say "COUNTS 0 0 1"
  exit 0
fi
cat "$work/log"
passed=$(grep -c '^ok ' "$work/log") || true
failed=$(grep -c '^FAILED ' "$work/log") || true
# The script may have ended before its last check.
if [ $status -ne 0 ] && [ "$failed" -eq 0 ]; then
  say "FAILED  the installer's checks ended with status $status"
  failed=1
fi
say "COUNTS $passed $failed 0"
