#!/usr/bin/env bash
# Installs and uninstalls Oravin in Wine and looks at every file and registry value that comes and goes.
#
# Usage: tools/check-setup-inside.sh SETUP TREE SAMPLE VERSION
#   SETUP   the installer
#   TREE    the unpacked program folder of the portable archive, to compare with
#   SAMPLE  a sample installation of the game, which is changed and put back
#
# Runs inside tools/windows-machine.sh, whose prefix WINEPREFIX nobody else uses. Prints a line for each check, which
# begins with "ok" or "FAILED"; the status is 0 when all are right.
set -uo pipefail
setup=$1
tree=$2
sample=$3
version=$4
failed=0

told() { if [ "$2" -eq 0 ]; then echo "ok      $1"; else echo "FAILED  $1"; failed=1; fi; }
run() { wine "$@" 2>/dev/null; }
windows_path() { printf 'Z:%s' "$(tr / '\\' <<<"$1")"; }

# value ROOT KEY [NAME]: a value of the registry, without NAME the key's default; nothing when it is not there.
value() {
  local of=(/ve)
  [ -z "${3:-}" ] || of=(/v "$3")
  run reg query "$1\\$2" "${of[@]}" | tr -d '\r' | sed -nE 's/^ +.*    REG_[A-Z]+ +(.*)$/\1/p' | grep -vxF '(value not set)'
}
has_key() { run reg query "$1\\$2" >/dev/null; }

app_paths='Software\Microsoft\Windows\CurrentVersion\App Paths\Oravin.exe'
uninstall='Software\Microsoft\Windows\CurrentVersion\Uninstall\Oravin'
classes='Software\Classes'

# files FOLDER: what is in it, a line for each file with its sum, and for each folder.
files() { (cd "$1" && { find . -mindepth 1 -type d -printf '%P/\n'; find . -type f -printf '%P\0' | xargs -0r md5sum; } | LC_ALL=C sort); }

# same_files A B [NAME-LEFT-OUT]
same_files() { diff <(files "$1" | grep -v "  ${3:-//}\$") <(files "$2" | grep -v "  ${3:-//}\$"); }

home() { ls -d "$WINEPREFIX"/drive_c/users/*/AppData/Local | grep -v /Public/ | head -n 1; }
install() { run "$(windows_path "$setup")" /S; }

# remove [WORD...]: the uninstaller goes on in a copy of itself, until its entry in the list of programs is gone.
remove() {
  run "$folder_in_windows\\uninstall.exe" /S "$@"
  local i
  for i in $(seq 100); do has_key HKCU "$uninstall" || break; sleep 0.2; done
}

folder=$(home)/Programs/Oravin
folder_in_windows="C:${folder#"$WINEPREFIX"/drive_c}"
folder_in_windows=$(tr / '\\' <<<"$folder_in_windows")
# Another program opens these files, and goes on doing so.
run reg add "HKCU\\$classes\\.pak" /ve /d Other.Pack /f >/dev/null
image=$(mktemp -d)
trap 'rm -rf "$image"' EXIT
cp -a "$sample/StarLancer" "$image/game"

install
told "the installer works without a question" $?
same_files "$tree" "$folder" uninstall.exe
told "the installed folder is the portable archive's" $?
[ -s "$folder/uninstall.exe" ]
told "there is an uninstaller" $?
[ -n "$(find "$WINEPREFIX/drive_c" -path '*Start Menu/Programs/Oravin.lnk')" ]
told "there is an entry in the start menu" $?
[ "$(value HKLM "$app_paths")" = "$folder_in_windows\\Oravin.exe" ] && [ "$(value HKCU "$app_paths")" = "$folder_in_windows\\Oravin.exe" ]
told "the App Paths value leads to the program" $?
[ "$(value HKCU "$uninstall" DisplayVersion)" = "$version" ] && [ "$(value HKCU "$uninstall" InstallLocation)" = "$folder_in_windows" ] &&
  [ "$(value HKCU "$uninstall" UninstallString)" = "\"$folder_in_windows\\uninstall.exe\"" ]
told "the list of programs knows it" $?
[ "$(value HKCU "$classes\\.pak")" = Other.Pack ] && [ -z "$(value HKCU "$classes\\.shp")" ]
told "no file type is seized" $?
run reg query "HKCU\\$classes\\.pak\\OpenWithProgids" /v Oravin.ShipPack >/dev/null &&
  [ "$(value HKCU "$classes\\Oravin.ShipPack\\shell\\open\\command")" = "\"$folder_in_windows\\Oravin.exe\" \"%1\"" ]
told "ship packs are offered" $?
[ "$(run "$folder_in_windows\\oravin-cli.exe" --version | tr -d '\r')" = "oravin-cli $version" ]
told "the installed program runs" $?

# program_folder: where the installed program takes its own folder to be.
program_folder() {
  run "$folder_in_windows\\oravin-cli.exe" --json --game "$(windows_path "$sample/StarLancer")" status |
    sed -nE 's/^ *"programFolder": "(.*)",?\r?$/\1/p' | sed 's/\\\\/\\/g'
}
cp -r "$sample/Oravin/shipsData.txt" "$sample/Oravin/addons" "$folder/"
[ "$(program_folder)" = "$folder_in_windows\\" ]
told "start-up finds its folder in the registry" $?
run reg delete "HKLM\\$app_paths" /f >/dev/null
[ "$(program_folder)" = "$folder_in_windows\\" ]
told "start-up finds its folder without the registry" $?

printf 'mine' >"$folder/addons/ships/mine.shp"
printf 'better' >"$folder/3D/cube.bmp"
printf 'old' >"$folder/readme.txt"
install
[ "$(cat "$folder/3D/cube.bmp")" = better ] && [ "$(cat "$folder/addons/ships/mine.shp")" = mine ] && [ -s "$folder/shipsData.txt" ] &&
  cmp "$tree/readme.txt" "$folder/readme.txt"
told "a second installation leaves what the player made" $?

run "$folder_in_windows\\oravin-cli.exe" --yes --game "$(windows_path "$sample/StarLancer")" --program "$folder_in_windows" enable >/dev/null &&
  [ -s "$folder/ships.dat" ]
told "the installed program enables the features" $?
run reg add 'HKLM\Software\Microsoft\Microsoft Games\StarLancer\1.0' /v 'EXE Path' /d "$(windows_path "$sample/StarLancer")" /f >/dev/null
chmod a-w "$sample/StarLancer/resource.hog"
run "$folder_in_windows\\uninstall.exe" /S /RESTORE "_?=$folder_in_windows"
[ $? -ne 0 ] && [ -s "$folder/Oravin.exe" ] && [ -s "$folder/ships.dat" ] && has_key HKCU "$uninstall"
told "a restoration that fails leaves Oravin installed" $?
chmod u+w "$sample/StarLancer/resource.hog"
remove /RESTORE
[ ! -e "$folder/ships.dat" ] && same_files "$image/game" "$sample/StarLancer"
told "the uninstaller puts the game's files back" $?
left=$(cd "$folder" && find . -type f ! -path './addons/*' | LC_ALL=C sort | tr '\n' ' ')
[ "$left" = "./3D/cube.bmp ./backup/resource.fat ./backup/shipstats.def ./gloadconv.dat ./shipsData.txt " ]
told "the uninstaller leaves the kept copies and what the player changed: $left" $?
same_files "$sample/Oravin/addons" "$folder/addons" ships/mine.shp && [ "$(cat "$folder/addons/ships/mine.shp")" = mine ]
told "the uninstaller leaves the add-ons" $?
[ -z "$(find "$WINEPREFIX/drive_c" -name Oravin.lnk)" ] && ! has_key HKCU "$uninstall" && ! has_key HKLM "$app_paths" &&
  ! has_key HKCU "$app_paths" && ! has_key HKCU "$classes\\Oravin.ShipPack" && ! has_key HKCU "$classes\\Oravin.ShipModel" &&
  ! has_key HKCU "$classes\\.shp" && ! has_key HKCU "$classes\\Applications\\Oravin.exe"
told "nothing of it stays in the registry and the start menu" $?
[ "$(value HKCU "$classes\\.pak")" = Other.Pack ] && ! has_key HKCU "$classes\\.pak\\OpenWithProgids"
told "the other program's file type is as it was" $?

rm -rf "$folder"
install
remove
[ ! -e "$folder" ]
told "an installation that was never used goes without a trace" $?
exit $failed
