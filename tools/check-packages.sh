#!/usr/bin/env bash
# Checks the packages of build/packages, and what else they are made of. They read the packages and nothing of the build; each
# prints what is wrong.
# Usage: tools/check-packages.sh CHECK, one of the procedures below
set -uo pipefail
cd "$(dirname "$0")/.."
. tools/common.sh

packages=build/packages

# has_line TEXT LINE: the text has exactly this line.
has_line() { grep -qxF -- "$2" <<<"$1" || { say "  missing: $2"; return 1; }; }

# same NAME IS SHOULD
same() { [ "$2" = "$3" ] || { say "  $1 is \"$2\" and should be \"$3\""; return 1; }; }

deb() { echo "$packages/oravin_$(project_version)_$(dpkg --print-architecture).deb"; }
tarball() { echo "$packages/oravin-$(project_version)-linux-$(uname -m).tar.gz"; }

# The package has every file of data/ and the files for the desktop.
deb_files() {
  local files file bad=0
  files=$(dpkg-deb --fsys-tarfile "$(deb)" | tar --list | sed 's,^\./,,' | grep -v '/$' | grep . | LC_ALL=C sort)
  {
    printf 'usr/%s\n' bin/oravin bin/oravin-cli share/applications/oravin.desktop share/doc/oravin/changelog.gz \
      share/doc/oravin/copyright share/icons/hicolor/scalable/apps/oravin.svg share/man/man1/oravin.1.gz \
      share/man/man1/oravin-cli.1.gz share/metainfo/org.oravin.Oravin.metainfo.xml share/mime/packages/oravin.xml
    for file in 16 24 32 48 64 128 256; do echo "usr/share/icons/hicolor/${file}x$file/apps/oravin.png"; done
    git ls-files -co --exclude-standard -- data | sed 's,^data/,usr/share/oravin/,'
  } | LC_ALL=C sort | diff - <(echo "$files") || bad=1
  return $bad
}

deb_control() {
  local control
  control=$(dpkg-deb --field "$(deb)")
  has_line "$control" "Version: $(project_version)" && has_line "$control" "Package: oravin" &&
    grep -qE '^Depends: .*libc6 \(.*libwxgtk3\.2-1 \(' <<<"$control" || { say "  $control"; return 1; }
}

# No errors or warnings of lintian.
deb_lintian() { lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$(deb)"; }

metainfo_version() {
  same "the version in the metainfo" \
    "$(sed -nE 's/.*<release version="([^"]*)".*/\1/p' packaging/linux/org.oravin.Oravin.metainfo.xml | head -n 1)" "$(project_version)"
}

desktop_file() { desktop-file-validate packaging/linux/oravin.desktop; }
metainfo() {
  local report
  report=$(appstreamcli validate --no-net packaging/linux/org.oravin.Oravin.metainfo.xml 2>&1) || { say "$report"; return 1; }
}

# Ship files are recognised by extension, another program's .pak by its content.
mime_types() (
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  mkdir -p "$work/mime/packages"
  cp packaging/linux/oravin.xml "$work/mime/packages"
  XDG_DATA_HOME=$work update-mime-database "$work/mime" || exit 1
  printf '"Two ships"\r\n"\\reaper.shp","Reaper",""\r\n' >"$work/ours.pak"
  printf 'PACK\14\0\0\0\0\0\0\0' >"$work/theirs.pak"
  printf '\5\0\0\0\1' >"$work/others.pak"
  printf 'x' >"$work/model.shp"
  type_of() { XDG_DATA_HOME=$work/ XDG_DATA_DIRS=/usr/share gio info -a standard::content-type "$work/$1" | sed -n 's/.*content-type: //p'; }
  same "the type of a ship pack" "$(type_of ours.pak)" application/x-starlancer-ship-pack &&
    same "the type of another pack" "$(type_of theirs.pak)" application/x-pak &&
    same "the type of a third one" "$(type_of others.pak)" application/x-pak &&
    same "the type of a model" "$(type_of model.shp)" application/x-starlancer-ship-model
)

# The tarball's tree works from any folder: the first start creates the program folder and finds the game.
tree_starts() (
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  tar --extract --gzip --directory="$work" --file="$(tarball)" || exit 1
  tree=$work/oravin-$(project_version)-linux-$(uname -m)
  export HOME=$work/home XDG_CONFIG_HOME=$work/config WINEPREFIX=$work/wine
  unset XDG_DATA_HOME
  same "the version" "$("$tree/bin/oravin-cli" --version)" "oravin-cli $(project_version)" &&
    same "the window's version" "$("$tree/bin/oravin" --version)" "Oravin $(project_version)" || exit 1
  # Not grep -q: it would close the pipe while the program is still writing.
  help=$("$tree/bin/oravin-cli" --help) && grep -q '^Usage: oravin-cli' <<<"$help" || { say "  no help"; exit 1; }
  help=$("$tree/bin/oravin" --help) && grep -q -- '--game DIR' <<<"$help" || { say "  no help of the window"; exit 1; }
  mandoc -T utf8 "$tree/share/man/man1/oravin.1" >/dev/null && mandoc -T utf8 "$tree/share/man/man1/oravin-cli.1" >/dev/null || exit 1
  build/release/bin/oravin-demo "$work/sample" >/dev/null
  # Without a ship list the status is shown; Enable needs the list.
  "$tree/bin/oravin-cli" --json --game "$work/sample/StarLancer" status >"$work/status" 2>"$work/errors" && { say "  a start without a ship list must be refused"; exit 1; }
  for file in readme.txt 3D/cube.bmp 3D/gcube.bmp; do
    cmp "$tree/share/oravin/$file" "$HOME/.local/share/oravin/$file" || exit 1
  done
  cp "$work/sample/Oravin/shipsData.txt" "$HOME/.local/share/oravin/"
  "$tree/bin/oravin-cli" --json --game "$work/sample/StarLancer" status >"$work/status" || exit 1
  own=Z:$(tr / '\\' <<<"$HOME/.local/share/oravin/")
  same "the program folder" "$(jq -r .programFolder "$work/status")" "$own"
)

tree_icons() (
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  tar --extract --gzip --directory="$work" --file="$(tarball)" --strip-components=1 || exit 1
  for size in 16 24 32 48 64 128 256; do
    same "the size of an icon" "$(identify -format '%wx%h' "$work/share/icons/hicolor/${size}x$size/apps/oravin.png")" "${size}x$size" || exit 1
  done
)

windows_zip() { echo "$packages/oravin-$(project_version)-windows.zip"; }
windows_setup() { echo "$packages/oravin-$(project_version)-windows-setup.exe"; }

# from_zip COMMAND...: runs it in the unpacked portable archive.
from_zip() (
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  version=$(project_version)
  unzip -q "$(windows_zip)" -d "$work" && cd "$work/oravin-$version-windows" && "$@"
)

# The portable archive is a program folder with every file of data/ and the empty folders for add-ons.
zip_files() {
  local name
  name=oravin-$(project_version)-windows
  {
    printf "$name/%s\n" '' Oravin.exe oravin-cli.exe license.txt 3D/ addons/ addons/ships/ addons/stats/ addons/textures/
    git ls-files -co --exclude-standard -- data | sed "s,^data/,$name/,"
  } | LC_ALL=C sort | diff - <(zipinfo -1 "$(windows_zip)" | LC_ALL=C sort)
}

# Texts have Windows line ends and are otherwise those of the source tree.
zip_texts() {
  local here=$PWD
  from_zip bash -c "tr -d '\r' <readme.txt | cmp - '$here/data/readme.txt' && tr -d '\r' <license.txt | cmp - '$here/LICENSE' &&
    ! grep -qv \$'\r\$' readme.txt license.txt"
}

# is_static_32_bit PROGRAM: it needs no DLLs but the system's.
is_static_32_bit() {
  local headers strange
  headers=$(i686-w64-mingw32-objdump -p "$1") || return 1
  grep -q 'file format pei-i386$' <<<"$headers" || { say "  $1 is no 32-bit program for Windows"; return 1; }
  # In the system folder of every Windows since 7.
  strange=$(sed -n 's/^\tDLL Name: //p' <<<"$headers" | tr A-Z a-z | grep -vxE \
    '(advapi32|comctl32|comdlg32|gdi32|gdiplus|imm32|kernel32|msimg32|msvcrt|ole32|oleacc|oleaut32|rpcrt4|shell32|shlwapi|user32|uxtheme|version|winmm|ws2_32)\.dll|winspool\.drv') || true
  [ -z "$strange" ] || { say "  $1 needs $strange"; return 1; }
  [ "$(stat -c %s "$1")" -le $((8 * 1024 * 1024)) ] || { say "  $1 is larger than 8 MiB"; return 1; }
}

windows_programs() { from_zip eval 'is_static_32_bit Oravin.exe && is_static_32_bit oravin-cli.exe'; }

# Oravin.exe is a GUI program, oravin-cli.exe a console program.
windows_subsystems() {
  from_zip eval 'i686-w64-mingw32-objdump -p Oravin.exe | grep "^Subsystem.*(Windows GUI)" >/dev/null &&
    i686-w64-mingw32-objdump -p oravin-cli.exe | grep "^Subsystem.*(Windows CUI)" >/dev/null'
}

# has_manifest PROGRAM TEXT...: the program has exactly one manifest, which contains the texts.
has_manifest() {
  local program=$1 manifest text
  same "the number of manifests" "$(wrestool -l --type=24 "$program" | wc -l)" 1 || return 1
  manifest=$(wrestool -x --raw --type=24 "$program") || return 1
  xmllint --noout - <<<"$manifest" || return 1
  shift
  for text in "$@"; do grep -qF -- "$text" <<<"$manifest" || { say "  not in the manifest of $program: $text"; return 1; }; done
}

windows_manifests() {
  local texts=('level="asInvoker" uiAccess="false"' '>PerMonitorV2, PerMonitor</dpiAwareness>' '>true/pm</dpiAware>'
    '>true</longPathAware>' '{35138b9a-5d96-4fbd-8e2d-a2440225f93a}' '{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}'
    "version=\"$(project_version).0\"")
  from_zip has_manifest Oravin.exe "${texts[@]}" 'name="Microsoft.Windows.Common-Controls" version="6.0.0.0"' &&
    from_zip has_manifest oravin-cli.exe "${texts[@]}"
}

# Explorer shows the first icon group.
program_icons() {
  local first icon sizes
  icon=$(mktemp)
  first=$(wrestool -l --type=14 "$1" | head -n 1 | sed -nE "s/.*--name='?([^' ]*)'?.*/\1/p")
  wrestool -x --type=14 --name="$first" "$1" >"$icon"
  sizes=$(icotool -l "$icon" | sed -E 's/.*--width=([0-9]+) --height=\1 .*/\1/' | tr '\n' ' ')
  rm -f "$icon"
  same "the sizes of the icon of $1" "$sizes" "16 20 24 32 40 48 64 128 256 "
}
windows_icons() { from_zip eval 'program_icons Oravin.exe && program_icons oravin-cli.exe'; }

# has_version PROGRAM VERSION: in the numeric version and in the texts that Explorer shows.
has_version() {
  local numbers texts
  numbers=$(wrestool -x --raw --type=16 "$1" | od -A n -t u2 -j 48 -N 8 | awk '{ print $2 "." $1 "." $4 "." $3 }')
  same "the version's numbers in $1" "$numbers" "$2.0" || return 1
  texts=$(wrestool -x --raw --type=16 "$1" | iconv -f UTF-16LE -t UTF-8 -c | tr '\0' '\n')
  same "the file's version in $1" "$(grep -A 2 FileVersion <<<"$texts" | grep -E '^[0-9.]+$')" "$2" &&
    same "the product's version in $1" "$(grep -A 2 ProductVersion <<<"$texts" | grep -E '^[0-9.]+$')" "$2"
}
windows_versions() {
  local version
  version=$(project_version)
  from_zip eval "has_version Oravin.exe $version && has_version oravin-cli.exe $version"
}

"$1"
