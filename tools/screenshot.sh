#!/usr/bin/env bash
# Takes a screenshot of the window under a virtual display.
# Usage: tools/screenshot.sh ORAVIN FILE.png
set -euo pipefail
program=$1
file=$2
work=$(mktemp -d)
pids=()
finish() {
  # Wait for the program to exit: while it runs, every other Oravin is read-only on this installation.
  for ((i = ${#pids[@]} - 1; i >= 0; i--)); do
    kill "${pids[i]}" 2>/dev/null || true
    wait "${pids[i]}" 2>/dev/null || true
  done
  rm -rf "$work"
}
trap finish EXIT

Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
pids+=($!)
for _ in $(seq 200); do [ -s "$work/display" ] && break; sleep 0.05; done
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
pids+=($!)
"$program" --layout "$work/layout.json" 2>/dev/null &
pids+=($!)
for _ in $(seq 400); do [ -s "$work/layout.json" ] && break; sleep 0.05; done
[ -s "$work/layout.json" ]
window=$(xdotool search --onlyvisible --name '^Oravin$' | tail -n 1)
xdotool windowmove --sync "$window" 8 32
# It is painted when two looks at it show the same.
before=
for _ in $(seq 50); do
  import -window "$window" -frame "$file"
  now=$(identify -format '%#' "$file")
  [ "$now" != "$before" ] || break
  before=$now
  sleep 0.2
done
