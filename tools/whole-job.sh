#!/usr/bin/env bash
# The whole job through the command line, from enabling to disabling: after each step what it printed, its status and every
# file of the installation are noted, so that two systems' programs can be compared.
# Usage: tools/whole-job.sh SAMPLE NOTES COMMAND...
#   SAMPLE   a fresh sample installation, as a whole path of this machine
#   NOTES    the folder that the notes go into
#   COMMAND  starts the command line's program
set -euo pipefail
sample=$1
notes=$2
shift 2
# A path that both systems understand: drive Z: is the machine's root folder to either.
windows() { printf 'Z:%s' "${1//\//\\}"; }
program=("$@" --game "$(windows "$sample/StarLancer")" --program "$(windows "$sample/Oravin")" --yes)
pack=$sample/Oravin/packs
archive=$(windows "$sample/StarLancer/resource.hog")
number=0

files() { (cd "$sample" && find . -type d -printf '%p/\n' | LC_ALL=C sort && find . -type f -print0 | LC_ALL=C sort -z | xargs -0 sha256sum); }

step() {
  local note status=0
  number=$((number + 1))
  note=$notes/$(printf '%02d' $number)
  printf '%s\n' "$*" >"$note.txt"
  "${program[@]}" "$@" >>"$note.txt" 2>&1 </dev/null || status=$?
  printf 'status %s\n' $status >>"$note.txt"
  files >"$note.files"
}

mkdir -p "$notes" "$sample/out"
files >"$notes/00.files"
step status --json
step enable
step ships list --json
step ships swap Predator Manta
step ships swap Longbow Kestrel
step stats show Predator --json
step stats set Sabrewing 'Max Speed' 700
step weapons list Sabrewing --json
step weapons set Sabrewing 1 missile
step cloak toggle Sabrewing
step hog list "$archive" --json
step hog backup-fat "$archive"
step hog extract "$archive" 'sounds\radio\wing_0001.wav' 'textures\ui\panel_0001.raw' --to "$(windows "$sample/out")"
step hog unpack "$archive" 'missions\mission_0001\script.txt' --to "$(windows "$sample/out")"
step model textures "$(windows "$pack/raiders/raptor.shp")"
step tcache list --json
step tcache extract cockpit01 gcockpit01 --to "$(windows "$sample/out")"
step tcache preview cockpit01 --to "$(windows "$sample/out/preview.bmp")"
step tcache import "$(windows "$sample/Oravin/addons/textures/manta1.bmp")" newone
step tcache rename newone other
step import "$(windows "$pack/raiders/raiders.pak")"
step import "$(windows "$pack/raiders/raiders.pak")" --rename PREDATOR=Raptor
step convert "$(windows "$sample/none.3ds")"
step import "$(windows "$pack/sentinels/sentinels.pak")"
step imported list --json
step shiplist draft --to "$(windows "$sample/out/draft.txt")"
step ships list --json
step ships unswap-all
step imported remove --all
step stats restore-all
step hog restore-fat "$archive"
step disable
step tcache import "$(windows "$pack/raiders/locust1.bmp")" newone
step tcache restore
step status --json
