#!/usr/bin/env bash
# Shows Oravin without a display: enable, switch a ship, restore it, disable, with a proof that the game folder is
# unchanged, and a screenshot of the window under a virtual display.
# Usage: tools/show-without-display.sh PROGRAMS SAMPLE
set -euo pipefail
bin=$1
sample=$2
cli="$bin/oravin-cli --yes"

# The digest of every file in the game folder except shipstats.def, which Oravin adds.
digests() { (cd "$sample/StarLancer" && find . -type f ! -iname shipstats.def -print0 | sort -z | xargs -0 sha256sum); }
step() { printf '\n$ oravin-cli %s\n' "$*"; $cli "$@" 2>&1; }

if [ "$($cli --json status 2>/dev/null | jq .enabled)" = true ]; then step disable; fi
before=$(digests)
step status
step enable
# The first stock ship, in the sample a two-part fighter, and the first imported ship, also a fighter.
target=$($cli --json ships list 2>/dev/null | jq -r '[.[] | select(.imported | not)][0].shipName')
source=$($cli --json ships list 2>/dev/null | jq -r '[.[] | select(.imported)][0].shipName')
step ships swap "$target" "$source"
step stats show "$target"
"$(dirname "$0")/screenshot.sh" "$bin/oravin" build/screenshot.png && printf '\nA screenshot of the window: build/screenshot.png\n'
step ships unswap "$target"
step disable
after=$(digests)
if [ "$before" = "$after" ]; then
  printf '\nThe game folder is unchanged: %s files, byte for byte.\n' "$(printf '%s\n' "$after" | wc -l)"
else
  printf '\nThe game folder has changed:\n' >&2
  diff <(printf '%s\n' "$before") <(printf '%s\n' "$after") >&2
  exit 1
fi
