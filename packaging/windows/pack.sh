#!/usr/bin/env bash
# Makes the packages for Windows of a build.
# Usage: packaging/windows/pack.sh VERSION BUILD FOLDER, in the project's folder; SOURCE_DATE_EPOCH is the date of all files
set -euo pipefail
version=$1
build=$2
folder=$3
most=$((8 * 1024 * 1024))  # size limit of an executable, in bytes
name=oravin-$version-windows
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022

# The program folder as it is shipped; texts get Windows line ends.
tree=$work/$name
mkdir -p "$tree/addons/ships" "$tree/addons/textures" "$tree/addons/stats"
for program in Oravin.exe oravin-cli.exe; do
  i686-w64-mingw32-strip -o "$tree/$program" "$build/bin/$program"
  size=$(stat -c %s "$tree/$program")
  if [ "$size" -gt $most ]; then
    echo "$program is too large: $size bytes; the limit is $most." >&2
    exit 1
  fi
done
cp -r data/. "$tree/"
sed 's/\r*$/\r/' data/readme.txt >"$tree/readme.txt"
sed 's/\r*$/\r/' LICENSE >"$tree/license.txt"
find "$tree" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +

rm -f "$folder/$name.zip" "$folder/$name-setup.exe"
(cd "$work" && find "$name" | LC_ALL=C sort | TZ=UTC zip -q -X -9 "$folder/$name.zip" -@)
makensis -V2 -WX -DVERSION="$version" -DTREE="$tree" -DICON="$build/resources/oravin.ico" -DOUTPUT="$folder/$name-setup.exe" \
  packaging/windows/oravin.nsi
ls -l "$tree"/*.exe "$folder/$name.zip" "$folder/$name-setup.exe" | awk '{ n = split($9, part, "/"); print $5, part[n] }'
