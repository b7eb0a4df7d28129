#!/usr/bin/env bash
# Renders the program's icon: FOLDER/oravin-SIZE.png for each size and, with --ico, FOLDER/oravin.ico with all sizes.
# Needs rsvg-convert; --ico also needs icotool.
# Usage: packaging/icons/render.sh FOLDER [--ico]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$1
mkdir -p "$folder"
# The large drawing is unreadable at small sizes, so these have a simpler one.
for size in 16 20 24; do rsvg-convert -w $size -h $size "$here/oravin-small.svg" -o "$folder/oravin-$size.png"; done
for size in 32 40 48 64 128 256; do rsvg-convert -w $size -h $size "$here/oravin.svg" -o "$folder/oravin-$size.png"; done
[ "${2:-}" = --ico ] || exit 0
images=()
for size in 16 20 24 32 40 48 64 128; do images+=("$folder/oravin-$size.png"); done
icotool --create --output="$folder/oravin.ico" "${images[@]}" --raw="$folder/oravin-256.png"
