#!/usr/bin/env bash
# The job of the window through the command line: enable, switch a ship and back, disable, with a proof that the game
# folder is as it was, and a screenshot of the window taken under a virtual display.
# Usage: tools/show-without-display.sh PROGRAMS SAMPLE
set -euo pipefail
bin=$1
sample=$2
cli="$bin/oravin-cli --yes"

# Every file of the game folder but the defaults of the statistics, with its digest.
digests() { (cd "$sample/StarLancer" && find . -type f ! -iname shipstats.def -print0 | sort -z | xargs -0 sha256sum); }
step() { printf '\n$ oravin-cli %s\n' "$*"; $cli "$@" 2>&1; }

if [ "$($cli --json status 2>/dev/null | jq .enabled)" = true ]; then step disable; fi
before=$(digests)
step status
step enable
# The first stock ship, a fighter of two parts in the sample, and the first imported ship, which may take its place.
target=$($cli --json ships list 2>/dev/null | jq -r '[.[] | select(.imported | not)][0].shipName')
source=$($cli --json ships list 2>/dev/null | jq -r '[.[] | select(.imported)][0].shipName')
step ships swap "$target" "$source"
step stats show "$target"
"$(dirname "$0")/screenshot.sh" "$bin/oravin" build/screenshot.png && printf '\nA screenshot of the window: build/screenshot.png\n'
step ships unswap "$target"
step disable
after=$(digests)
if [ "$before" = "$after" ]; then
  printf '\nThe game folder is as it was before: %s files, byte for byte.\n' "$(printf '%s\n' "$after" | wc -l)"
else
  printf '\nThe game folder has changed:\n' >&2
  diff <(printf '%s\n' "$before") <(printf '%s\n' "$after") >&2
  exit 1
fi
