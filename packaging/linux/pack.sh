#!/usr/bin/env bash
# Makes the packages for Linux of a build.
# Usage: packaging/linux/pack.sh VERSION BUILD FOLDER, in the project's folder; SOURCE_DATE_EPOCH is the date of all files
set -euo pipefail
version=$1
build=$2
folder=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022

# lay_out ROOT: the tree of bin and share below it.
lay_out() {
  cmake --install "$build" --prefix "$1" --strip >/dev/null
  packaging/icons/render.sh "$work/icons"
  local size
  for size in 16 24 32 48 64 128 256; do
    install -D -m 644 "$work/icons/oravin-$size.png" "$1/share/icons/hicolor/${size}x$size/apps/oravin.png"
  done
}

# set_dates ROOT: sets the date of all files.
set_dates() { find "$1" -exec touch --no-dereference -d "@$SOURCE_DATE_EPOCH" {} +; }

# dependencies ROOT: what dpkg-shlibdeps finds in the executables.
dependencies() {
  mkdir -p "$work/shlibs/debian"
  printf 'Source: oravin\n\nPackage: oravin\nArchitecture: any\n' >"$work/shlibs/debian/control"
  (cd "$work/shlibs" && dpkg-shlibdeps -O -e "$1/bin/oravin" -e "$1/bin/oravin-cli" 2>"$work/shlibs.log") >"$work/depends" ||
    { cat "$work/shlibs.log" >&2; exit 1; }
  sed 's/^shlibs:Depends=//' "$work/depends"
}

make_deb() {
  local root=$work/deb maintainer="The Oravin developers <maintainers@oravin.org>" architecture
  architecture=$(dpkg --print-architecture)
  mkdir -p "$root/usr"
  cp -a "$1/." "$root/usr/"
  gzip -9n "$root"/usr/share/man/man1/*.1
  printf 'oravin (%s) stable; urgency=medium\n\n  * Version %s.\n\n -- %s  %s\n' "$version" "$version" "$maintainer" \
    "$(LC_ALL=C date -R -u -d "@$SOURCE_DATE_EPOCH")" | gzip -9n >"$root/usr/share/doc/oravin/changelog.gz"
  mkdir "$root/DEBIAN"
  (cd "$root" && find usr -type f | LC_ALL=C sort | xargs -d '\n' md5sum) >"$root/DEBIAN/md5sums"
  cat >"$root/DEBIAN/control" <<TEXT
Package: oravin
Version: $version
Architecture: $architecture
Maintainer: $maintainer
Installed-Size: $(du -k -s --apparent-size "$root/usr" | cut -f 1)
Depends: $(dependencies "$1"), hicolor-icon-theme
Recommends: xdg-utils
Suggests: wine
Section: utils
Priority: optional
Description: editor for the installed files of StarLancer
 Oravin edits the installed files of the space-combat game StarLancer and can
 restore them at any time. It makes the game fly one ship in place of another,
 imports new ships, changes the statistics and weapons of ships, and extracts
 files from the game's archive and texture cache.
 .
 The game is needed; it may be installed in Wine. Nothing of it is included.
TEXT
  set_dates "$root"
  dpkg-deb --root-owner-group -Zxz --build "$root" "$folder/oravin_${version}_$architecture.deb" >/dev/null
}

make_tarball() {
  local name
  name=oravin-$version-linux-$(uname -m)
  cp -a "$1" "$work/$name"
  sed "s/@DEPENDS@/$(dependencies "$1")/" packaging/linux/README.txt >"$work/$name/README.txt"
  set_dates "$work/$name"
  tar --create --directory="$work" --sort=name --owner=0 --group=0 --numeric-owner "$name" |
    gzip -9n >"$folder/$name.tar.gz"
}

rm -f "$folder"/oravin_*.deb "$folder"/oravin-*-linux-*.tar.gz
lay_out "$work/tree"
make_deb "$work/tree"
make_tarball "$work/tree"
ls -l "$folder"/oravin_*.deb "$folder"/oravin-*-linux-*.tar.gz | awk '{ print $5, $9 }'
