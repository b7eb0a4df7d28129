#!/usr/bin/env bash
# Runs what was built for Windows: the test programs; the whole job, compared with this system's program file by file; and
# the window, by the clicks of this system's window_test. Prints a line for each and last "COUNTS passed failed skipped";
# what the programs said is kept in build/windows/logs, pictures of the window in the screenshots folder of that build.
# Usage: tools/windows-tests.sh PROGRAMS-OF-THIS-SYSTEM
set -euo pipefail
here_programs=$(readlink -f "$1")
cd "$(dirname "$0")/.."
. tools/common.sh

# Those that take longest come first.
tests="app_test tabs_test actions_test installation_test archive_test textures_test models_test stats_test lists_test convert_test platform_test base_test files_test desk_test catalogue_test"
# Not run there: tests that stop an action at each of its hundreds of file operations, or walk many made-up files. What they
# look at is the same on every system, and in Wine they would take half an hour.
too_long=Interruption.*:ImportedInterruption.*:RemovalInterrupted.*:RenamingInterrupted.*:ManyShips.*:Removing.OneOfThreeHundred
too_long+=:StoppedImport.*:FailingImport.*:Failure.OfEachOperationOfEnable:Failure.OfEachOperationOfDisable
too_long+=:ImportedList.ShowsThreeHundred:Attachments.OfHostileModels*:TextureNames.OfHostileModels*
too_long+=$(printf ':Seeds/HurtfulArchives.*/%s' {1..19})
# Of the window's tests, those whose clicks and keys mean the same on Windows: a few of each page.
clicks=WindowLayout.EveryTab*:WindowLayout.AccessKeys:WindowLayout.TabKey*:WindowLayout.FoldersAreShown:WindowLayout.Columns*
clicks+=:Window.*ByClick*:Window.NoChangesNothing:Window.Capital*:Window.Exit*
clicks+=:StatsPage.Chosen*:StatsPage.Click*:StatsPage.Cloak*:StatsPage.External*:StatsPage.Buttons*:StatsPage.ValueOutOfRange*
clicks+=:HogPage.Buttons*:TcachePage.NameIs*:TcachePage.Preview*F*:TcachePage.RestoreAsks*:TcachePage.Thumbnails*ByKeyboard
clicks+=:ImportPanel.Bitmap*:ImportPanel.FighterIsImported*:ImportShips.Converted*
root=$PWD
there=$root/build/windows
logs=$there/logs
passed=0
failed=0
rm -rf "$logs" "$there/job"
mkdir -p "$logs" "$there/job"

# The sample at one place for both systems: its paths are in what the programs print.
sample=$there/job/sample
prepare_sample() { rm -rf "$sample"; "$here_programs/oravin-demo" "$sample" >/dev/null; }
prepare_sample
tools/whole-job.sh "$sample" "$there/job/here" "$here_programs/oravin-cli"
prepare_sample
for test in $tests; do [ -e "$there/bin/$test.exe" ] || die "$test was not built for Windows."; done

# One Wine for all of them, two programs at a time; each leaves its log and its status.
status=0
tools/windows-machine.sh --read "$root" --write "$logs" --write "$there/job" bash -c '
  root=$1 there=$2
  export too_long=$3
  shift 3
  cd "$root"
  {
    printf "%s\n" "$@" | xargs -P 2 -I TEST sh -c '\''
      status=0
      timeout 900 wine "$0/bin/TEST.exe" --gtest_color=no "--gtest_filter=-$too_long" >"$0/logs/TEST.log" 2>&1 </dev/null || status=$?
      printf "%s\n" $status >"$0/logs/TEST.status"'\'' "$there"
  }
  tools/whole-job.sh "$there/job/sample" "$there/job/windows" wine "$there/bin/oravin-cli.exe" >"$there/logs/job.log" 2>&1
  ' bash "$root" "$there" "$too_long" $tests || status=$?

if [ $status -eq 77 ]; then
  for test in $tests "the window" "the whole job"; do say "skipped $test on Windows"; done
  say "COUNTS 0 0 $(($(wc -w <<<"$tests") + 2))"
  exit 0
fi

# counted LOG WHAT: the number in GoogleTest's line of the tests that passed or were skipped.
counted() {
  local number
  number=$(grep -aoE "^\[  $2 +\] [0-9]+ tests?[.,]" "$1" | grep -oE '[0-9]+' | tail -n 1) || true
  printf '%s\n' "${number:-0}"
}

# The window by clicks, three programs at a time, each on displays and machines of its own.
export ORAVIN_WINDOWS_PROGRAMS=$there/bin
click() {
  local log=$1 program=$2 state=0
  shift 2
  env "$@" timeout 1500 "$here_programs/$program" --gtest_color=no >"$logs/$log.log" 2>&1 </dev/null || state=$?
  printf '%s\n' $state >"$logs/$log.status"
}
# Wine's folder browser shows no /dev.
click windows_window_test windows_window_test TMPDIR=/tmp &
for shard in 0 1; do
  click "window_test_$shard" window_test TMPDIR=/dev/shm GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$shard GTEST_FILTER="$clicks" &
done
wait

skipped=0
for test in $tests windows_window_test window_test_0 window_test_1; do
  log=$logs/$test.log
  [ ! -e "$log" ] || sed -i 's/\r$//' "$log"
  ended=$(cat "$logs/$test.status" 2>/dev/null || true)
  good=$(counted "$log" PASSED)
  bad=$(grep -acE '^\[  FAILED  \] [A-Za-z_0-9/]+\.[^ ]+ \([0-9]+ ms\)$' "$log") || true
  left=$(counted "$log" SKIPPED)
  # A program that stopped in the middle has no last line, and one that failed otherwise has a status of its own.
  bad=${bad:-0}
  if [ "${ended:-1}" -ne 0 ] && [ "$bad" -eq 0 ]; then bad=1; fi
  if [ "$good" -eq 0 ] && [ "$bad" -eq 0 ]; then bad=1; fi
  passed=$((passed + good))
  failed=$((failed + bad))
  skipped=$((skipped + left))
  if [ "$bad" -eq 0 ]; then
    say "ok      $test on Windows: $good passed, $left skipped"
  else
    say "FAILED  $test on Windows: $good passed, $bad failed, $left skipped; status ${ended:-none}, log $log"
    grep -aE '^\[  FAILED  \] [A-Z]' "$log" | sort -u | head -n 20 || tail -n 5 "$log"
  fi
done

if diff -r "$there/job/here" "$there/job/windows" >"$logs/job.diff" 2>&1 && [ -e "$there/job/windows/01.txt" ]; then
  passed=$((passed + 1))
  say "ok      the whole job on Windows: $(ls "$there"/job/here/*.txt | wc -l) steps, the same files and texts"
else
  failed=$((failed + 1))
  say "FAILED  the whole job on Windows: other files or texts, see $logs/job.diff"
fi
rm -rf "$sample"
say "COUNTS $passed $failed $skipped"
