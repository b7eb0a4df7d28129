#!/usr/bin/env bash
# Installs and uninstalls Oravin in Wine and checks every file and registry value that is added or removed.
#
# Usage: tools/check-setup-inside.sh SETUP TREE SAMPLE VERSION
#   SETUP   the installer
#   TREE    the unpacked portable archive, for comparison
#   SAMPLE  a sample installation of the game, which is changed and restored
#
# Runs inside tools/windows-machine.sh with a Wine prefix of its own. Prints a line per check, starting with "ok" or
# "FAILED"; the exit status is 0 if all passed.
set -uo pipefail
setup=$1
tree=$2
sample=$3
version=$4
failed=0

result() { if [ "$2" -eq 0 ]; then echo "ok      $1"; else echo "FAILED  $1"; failed=1; fi; }
run() { wine "$@" 2>/dev/null; }
windows_path() { printf 'Z:%s' "$(tr / '\\' <<<"$1")"; }

# value ROOT KEY [NAME]: a registry value, without NAME the key's default; nothing if it does not exist.
value() {
  local of=(/ve)
  [ -z "${3:-}" ] || of=(/v "$3")
  run reg query "$1\\$2" "${of[@]}" | tr -d '\r' | sed -nE 's/^ +.*    REG_[A-Z]+ +(.*)$/\1/p' | grep -vxF '(value not set)'
}
has_key() { run reg query "$1\\$2" >/dev/null; }

app_paths='Software\Microsoft\Windows\CurrentVersion\App Paths\Oravin.exe'
uninstall='Software\Microsoft\Windows\CurrentVersion\Uninstall\Oravin'
classes='Software\Classes'

# files FOLDER: its contents, one line per folder and per file with its digest.
files() { (cd "$1" && { find . -mindepth 1 -type d -printf '%P/\n'; find . -type f -printf '%P\0' | xargs -0r md5sum; } | LC_ALL=C sort); }

# same_files A B [NAME-LEFT-OUT]
same_files() { diff <(files "$1" | grep -v "  ${3:-//}\$") <(files "$2" | grep -v "  ${3:-//}\$"); }

home() { ls -d "$WINEPREFIX"/drive_c/users/*/AppData/Local | grep -v /Public/ | head -n 1; }
install() { run "$(windows_path "$setup")" /S; }

# remove [WORD...]: the uninstaller continues in a copy of itself; wait until its registry entry is gone.
remove() {
  run "$folder_in_windows\\uninstall.exe" /S "$@"
  local i
  for i in $(seq 100); do has_key HKCU "$uninstall" || break; sleep 0.2; done
}

folder=$(home)/Programs/Oravin
folder_in_windows="C:${folder#"$WINEPREFIX"/drive_c}"
folder_in_windows=$(tr / '\\' <<<"$folder_in_windows")
# Another program is the default for .pak and must stay so.
run reg add "HKCU\\$classes\\.pak" /ve /d Other.Pack /f >/dev/null
image=$(mktemp -d)
trap 'rm -rf "$image"' EXIT
cp -a "$sample/StarLancer" "$image/game"

install
result "the installer runs silently" $?
same_files "$tree" "$folder" uninstall.exe
result "the installed folder equals the portable archive" $?
[ -s "$folder/uninstall.exe" ]
result "there is an uninstaller" $?
[ -n "$(find "$WINEPREFIX/drive_c" -path '*Start Menu/Programs/Oravin.lnk')" ]
result "there is an entry in the start menu" $?
[ "$(value HKLM "$app_paths")" = "$folder_in_windows\\Oravin.exe" ] && [ "$(value HKCU "$app_paths")" = "$folder_in_windows\\Oravin.exe" ]
result "the App Paths value names the program" $?
[ "$(value HKCU "$uninstall" DisplayVersion)" = "$version" ] && [ "$(value HKCU "$uninstall" InstallLocation)" = "$folder_in_windows" ] &&
  [ "$(value HKCU "$uninstall" UninstallString)" = "\"$folder_in_windows\\uninstall.exe\"" ]
result "it is in the list of programs" $?
[ "$(value HKCU "$classes\\.pak")" = Other.Pack ] && [ -z "$(value HKCU "$classes\\.shp")" ]
result "no file type is taken over" $?
run reg query "HKCU\\$classes\\.pak\\OpenWithProgids" /v Oravin.ShipPack >/dev/null &&
  [ "$(value HKCU "$classes\\Oravin.ShipPack\\shell\\open\\command")" = "\"$folder_in_windows\\Oravin.exe\" \"%1\"" ]
result "ship packs can be opened with Oravin" $?
[ "$(run "$folder_in_windows\\oravin-cli.exe" --version | tr -d '\r')" = "oravin-cli $version" ]
result "the installed program runs" $?

# program_folder: the program folder that the installed program finds.
program_folder() {
  run "$folder_in_windows\\oravin-cli.exe" --json --game "$(windows_path "$sample/StarLancer")" status |
    sed -nE 's/^ *"programFolder": "(.*)",?\r?$/\1/p' | sed 's/\\\\/\\/g'
}
cp -r "$sample/Oravin/shipsData.txt" "$sample/Oravin/addons" "$folder/"
[ "$(program_folder)" = "$folder_in_windows\\" ]
result "start-up finds its folder in the registry" $?
run reg delete "HKLM\\$app_paths" /f >/dev/null
[ "$(program_folder)" = "$folder_in_windows\\" ]
result "start-up finds its folder without the registry" $?

printf 'mine' >"$folder/addons/ships/mine.shp"
printf 'better' >"$folder/3D/cube.bmp"
printf 'old' >"$folder/readme.txt"
install
[ "$(cat "$folder/3D/cube.bmp")" = better ] && [ "$(cat "$folder/addons/ships/mine.shp")" = mine ] && [ -s "$folder/shipsData.txt" ] &&
  cmp "$tree/readme.txt" "$folder/readme.txt"
result "a second installation keeps the player's files" $?

run "$folder_in_windows\\oravin-cli.exe" --yes --game "$(windows_path "$sample/StarLancer")" --program "$folder_in_windows" enable >/dev/null &&
  [ -s "$folder/ships.dat" ]
result "the installed program enables the features" $?
run reg add 'HKLM\Software\Microsoft\Microsoft Games\StarLancer\1.0' /v 'EXE Path' /d "$(windows_path "$sample/StarLancer")" /f >/dev/null
chmod a-w "$sample/StarLancer/resource.hog"
run "$folder_in_windows\\uninstall.exe" /S /RESTORE "_?=$folder_in_windows"
[ $? -ne 0 ] && [ -s "$folder/Oravin.exe" ] && [ -s "$folder/ships.dat" ] && has_key HKCU "$uninstall"
result "if restoring fails, Oravin stays installed" $?
chmod u+w "$sample/StarLancer/resource.hog"
remove /RESTORE
[ ! -e "$folder/ships.dat" ] && same_files "$image/game" "$sample/StarLancer"
result "the uninstaller restores the game's files" $?
left=$(cd "$folder" && find . -type f ! -path './addons/*' | LC_ALL=C sort | tr '\n' ' ')
[ "$left" = "./3D/cube.bmp ./backup/resource.fat ./backup/shipstats.def ./gloadconv.dat ./shipsData.txt " ]
result "the uninstaller keeps backups and changed files: $left" $?
same_files "$sample/Oravin/addons" "$folder/addons" ships/mine.shp && [ "$(cat "$folder/addons/ships/mine.shp")" = mine ]
result "the uninstaller keeps the add-ons" $?
[ -z "$(find "$WINEPREFIX/drive_c" -name Oravin.lnk)" ] && ! has_key HKCU "$uninstall" && ! has_key HKLM "$app_paths" &&
  ! has_key HKCU "$app_paths" && ! has_key HKCU "$classes\\Oravin.ShipPack" && ! has_key HKCU "$classes\\Oravin.ShipModel" &&
  ! has_key HKCU "$classes\\.shp" && ! has_key HKCU "$classes\\Applications\\Oravin.exe"
result "registry and start menu are clean" $?
[ "$(value HKCU "$classes\\.pak")" = Other.Pack ] && ! has_key HKCU "$classes\\.pak\\OpenWithProgids"
result "the other program's file type is unchanged" $?

rm -rf "$folder"
install
remove
[ ! -e "$folder" ]
result "an unused installation is removed completely" $?
exit $failed
