#!/usr/bin/env bash
# Installs and uninstalls the packages of Windows in build/packages under Wine.
# Prints a line for each check; ends with 77 where this machine does not permit that.
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

tools/windows-machine.sh --read "$PWD/tools" --read "$packages" --read "$work" --write "$work/sample" \
  "$PWD/tools/check-setup-inside.sh" "$packages/oravin-$version-windows-setup.exe" "$work/oravin-$version-windows" "$work/sample" \
  "$version"
