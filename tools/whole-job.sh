#!/usr/bin/env bash
# Runs the command line through a whole session, from enable to disable. After each step it records the output, the exit
# status and a digest of every file, so that the programs of two systems can be compared.
# Usage: tools/whole-job.sh SAMPLE NOTES COMMAND...
#   SAMPLE   a fresh sample installation, an absolute path
#   NOTES    the folder for the records
#   COMMAND  how to start oravin-cli
set -euo pipefail
sample=$1
notes=$2
shift 2
# A path that both programs understand: drive Z: is the root folder for both.
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
