# What the packages of build/packages must be: functions for ./check, which sources this file and counts each of them.
# They read the packages and nothing of the build; each prints what is wrong.

packages=build/packages

# has_line TEXT LINE: the text has this very line.
has_line() { grep -qxF -- "$2" <<<"$1" || { say "  missing: $2"; return 1; }; }

# same NAME IS SHOULD
same() { [ "$2" = "$3" ] || { say "  $1 is \"$2\" and should be \"$3\""; return 1; }; }

deb() { echo "$packages/oravin_$(project_version)_$(dpkg --print-architecture).deb"; }
tarball() { echo "$packages/oravin-$(project_version)-linux-$(uname -m).tar.gz"; }

# Every file of data/ is in the package, and so is whatever a desktop needs.
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

# Nothing that lintian calls an error or a warning.
deb_lintian() { lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$(deb)"; }

metainfo_version() {
  same "the version in the metainfo" \
    "$(sed -nE 's/.*<release version="([^"]*)".*/\1/p' packaging/linux/org.oravin.Oravin.metainfo.xml | head -n 1)" "$(project_version)"
}

desktop_file() { desktop-file-validate packaging/linux/oravin.desktop; }
metainfo() {
  local told
  told=$(appstreamcli validate --no-net packaging/linux/org.oravin.Oravin.metainfo.xml 2>&1) || { say "$told"; return 1; }
}

# The types of ship files are told by their ends, a pack of another program by its beginning.
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

# The tree of the archive works from any folder: a first start makes the program folder, and the game is found there.
tree_starts() (
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  tar --extract --gzip --directory="$work" --file="$(tarball)" || exit 1
  tree=$work/oravin-$(project_version)-linux-$(uname -m)
  export HOME=$work/home XDG_CONFIG_HOME=$work/config WINEPREFIX=$work/wine
  unset XDG_DATA_HOME
  same "the version told" "$("$tree/bin/oravin-cli" --version)" "oravin-cli $(project_version)" &&
    same "the window's version" "$("$tree/bin/oravin" --version)" "Oravin $(project_version)" || exit 1
  "$tree/bin/oravin-cli" --help | grep -q '^Usage: oravin-cli' || { say "  no help"; exit 1; }
  "$tree/bin/oravin" --help | grep -q -- '--game DIR' || { say "  no help of the window"; exit 1; }
  mandoc -T utf8 "$tree/share/man/man1/oravin.1" >/dev/null && mandoc -T utf8 "$tree/share/man/man1/oravin-cli.1" >/dev/null || exit 1
  build/release/bin/oravin-demo "$work/sample" >/dev/null
  # Without a list of ships the installation is told of; Enable then needs the list.
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
