#!/usr/bin/env bash
# Prints the folder of a static wxWidgets for 32-bit Windows, and builds it first if it is missing. The source is Debian's
# package, in the version that the Linux program uses.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/common.sh

host=i686-w64-mingw32
# Only what the window uses. No image formats: pictures are SVG, rendered by the NanoSVG in the source. No debug checks:
# they show message boxes of their own. No palettes: they cost a request per device context. No accessibility layer: native
# controls work with screen readers without it.
options=(
  --host=$host --disable-shared --disable-debug_flag --disable-optimise --disable-precomp-headers --disable-sys-libs
  --disable-tests --without-subdirs --with-dpi=none --with-nanosvg
  --with-regex=no --with-zlib=no --with-expat=no --with-libpng=no --with-libjpeg=no --with-libtiff=no --with-opengl=no
  --without-libiconv --without-liblzma
)
left_out=(
  html htmlhelp aui ribbon propgrid stc richtext xrc webview webviewie mediactrl sockets ipc protocols protocol ftp http
  fileproto url webrequest fs_inet fs_archive arcstream tarstream zipstream filesystem fsvolume fswatcher dialupman
  secretstore sound joystick snglinst debugreport dbghelp docview mdi mdidoc help mshtmlhelp printarch postscript
  ps-in-msw svg graphics_ctx grid dataviewctrl treelist treebook calendar datepick timepick wizarddlg tipdlg
  splash animatectrl bannerwindow taskbaricon richmsgdlg richtooltip infobar notifmsg prefseditor searchctrl editablebox
  filectrl rearrangectrl colourpicker fontpicker filepicker dirpicker hyperlink collpane odcombobox bmpcombobox
  commandlinkbutton addremovectrl actindicator aboutdlg finddlg fontdlg coldlg creddlg progressdlg
  palette accessibility splitter sash miniframe metafile gif pcx tga iff pnm xpm config iniconf xlocale
)
# The tree control stays: the folder browser is compiled only together with it.
for part in "${left_out[@]}"; do options+=("--disable-$part"); done
flags="-O1 -ffunction-sections -fdata-sections -D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -D_FILE_OFFSET_BITS=64"

install_missing $packages_build $packages_windows >&2
version=$(dpkg-query -W -f='${source:Version}' libwxgtk3.2-dev)
compiler=$($host-g++-posix -dumpfullversion)
key=$(printf '%s\n' "$compiler" "$flags" "${options[@]}" | sha256sum | cut -c 1-12)
folder=$(cache_folder)/wxwidgets-$version-$key
if [ -e "$folder/complete" ]; then
  printf '%s\n' "$folder"
  exit 0
fi

# precompile OBJECT NAME: compiles the precompiled header for this object's library. It more than halves the time;
# wxWidgets does so itself only for other compilers.
precompile() {
  local command
  command=$(make -n "$1" | grep -m 1 -- "-c -o $1 ") || return 1
  command=${command##*bk-deps }
  command=${command/-c -o $1 / }
  mkdir -p ../source/include/wx/wxprec.h.gch
  eval "${command% *} -x c++-header ../source/include/wx/wxprec.h -o ../source/include/wx/wxprec.h.gch/$2"
}

# make_it: unpacks, builds and installs.
make_it() {
  debian_source wxwidgets3.2 "$version" "$folder.work" && mkdir "$folder.work/build" && cd "$folder.work/build" &&
    ../source/configure --prefix="$folder" "${options[@]}" CC="$host-gcc-posix" CXX="$host-g++-posix" \
      CFLAGS="$flags" CXXFLAGS="$flags -DWX_PRECOMP" &&
    precompile baselib_any.o base && precompile corelib_event.o core && make -j"$(nproc)" && make install
}

mkdir -p "$(cache_folder)"
exec 9>"$folder.lock"
flock 9  # another build may be running
if [ ! -e "$folder/complete" ]; then
  say "Building wxWidgets $version for Windows, once; the log is $folder.log" >&2
  rm -rf "$folder" "$folder.work"
  mkdir -p "$folder.work"
  (make_it) >"$folder.log" 2>&1 || { tail -n 30 "$folder.log" >&2; die "wxWidgets for Windows could not be built."; }
  rm -rf "$folder.work"
  touch "$folder/complete"
fi
printf '%s\n' "$folder"
