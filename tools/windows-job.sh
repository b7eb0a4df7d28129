#!/usr/bin/env bash
# Does the whole job with this system's program and with the one for Windows under Wine, and compares every file and text.
# Ends with 77 where this machine does not permit that.
# Usage: tools/windows-job.sh PROGRAMS-OF-THIS-SYSTEM
set -euo pipefail
programs=$(readlink -f "$1")
cd "$(dirname "$0")/.."
root=$PWD
job=$root/build/windows/job
rm -rf "$job"
mkdir -p "$job"

# The sample is at one place for both systems: its paths are in what the programs print.
"$programs/oravin-demo" "$job/sample" >/dev/null
tools/whole-job.sh "$job/sample" "$job/here" "$programs/oravin-cli"
rm -rf "$job/sample"
"$programs/oravin-demo" "$job/sample" >/dev/null
tools/windows-machine.sh --read "$root" --write "$job" "$root/tools/whole-job.sh" "$job/sample" "$job/windows" \
  wine "$root/build/windows/bin/oravin-cli.exe"
[ -e "$job/windows/01.txt" ]
diff -r "$job/here" "$job/windows"
