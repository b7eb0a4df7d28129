# Shared by the commands at the root. Sourced with the project's folder as the current one.

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

# What each command needs, as Debian's packages.
packages_build="g++ cmake ninja-build ccache libwxgtk3.2-dev libcli11-dev nlohmann-json3-dev libstb-dev libxxhash-dev"
packages_show="xvfb xauth xdotool openbox imagemagick x11-utils x11-xkb-utils fonts-dejavu-core jq"
packages_check="libgtest-dev libgmock-dev libbenchmark-dev liblz4-dev libdeflate-dev clang-format clang-tidy clang libclang-rt-14-dev mandoc lintian libglib2.0-bin $packages_show"
packages_linux="dpkg-dev librsvg2-bin desktop-file-utils appstream shared-mime-info"
packages_windows="debootstrap g++-mingw-w64-i686-posix dpkg-dev googletest librsvg2-bin icoutils nsis zip unzip libxml2-utils"

# The version as CMakeLists.txt has it.
project_version() { sed -nE 's/^project\(oravin VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt; }

# apt_get WORD...: apt-get as root or through sudo. It waits up to ten minutes while another program installs packages or
# fetches their lists; of these two apt-get itself waits only for the first.
apt_get() {
  local become=() said end=$((SECONDS + 600))
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || die "There is no sudo to install packages with."
    become=(sudo)
  fi
  until said=$("${become[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 "$@" 2>&1); do
    if [ $SECONDS -ge $end ] || ! grep -q '^E: Could not get lock' <<<"$said"; then die "$said"; fi
    sleep 1
  done
}

# install_missing PACKAGE...: installs those that are not there.
install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing: ${missing[*]}"
  apt_get update
  apt_get install -y --no-install-recommends "${missing[@]}"
}

# [targets="TARGET..."] build PRESET [CMAKE-OPTION...]: configures and builds below build/PRESET, everything or the targets;
# compiled files are kept in ccache's folder.
build() {
  local preset=$1 launcher=()
  shift
  # Without this ccache would keep nothing that uses precompiled headers.
  export CCACHE_SLOPPINESS=pch_defines,time_macros
  # What two builds compile in one way is compiled once.
  export CCACHE_BASEDIR=$PWD
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake --preset "$preset" "${launcher[@]}" "$@" >"build-$preset.log" 2>&1 || { cat "build-$preset.log"; rm -f "build-$preset.log"; die "CMake could not set up the build."; }
  rm -f "build-$preset.log"
  cmake --build --preset "$preset" ${targets:+--target $targets} -- --quiet
}

# beside LOG COMMAND...: begins a command beside the rest of the script and sets beside_job, to wait for. It is stopped when
# the script ends before it.
beside() {
  local log=$1
  shift
  ("$@") >"$log" 2>&1 &
  beside_job=$!
  # By itself a kill that finds nothing to stop would become the script's own status.
  trap 'kill $(jobs -p -r) 2>/dev/null || true' EXIT
}

# cache_folder: where things are kept that are made once for all builds, outside the tree.
cache_folder() { printf '%s\n' "${XDG_CACHE_HOME:-$HOME/.cache}/oravin"; }

# The keys that Debian's packages are signed with, on a Debian machine.
debian_keyring=/usr/share/keyrings/debian-archive-keyring.gpg

# debian_archive: this machine's source of Debian's main packages, as "URI SUITE".
debian_archive() {
  local codename
  codename=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
  apt-get indextargets --format '$(REPO_URI)|$(CODENAME)|$(RELEASE)|$(COMPONENT)|$(ORIGIN)' 'Created-By: Packages' |
    awk -F '|' -v codename="$codename" \
      '$5 == "Debian" && $4 == "main" && ($3 == codename || $2 == codename && $3 !~ /-/) { print $1, codename; exit }'
}

# debian_source PACKAGE VERSION FOLDER: unpacks Debian's source of a package as FOLDER/source. The machine's own apt
# is left as it is: lists of source packages are fetched into FOLDER.
debian_source() {
  local package=$1 version=$2 folder=$3 uri suite signed=
  read -r uri suite <<<"$(debian_archive)"
  [ -n "$uri" ] || { say "No source of Debian's packages is set up on this machine."; return 1; }
  [ ! -e $debian_keyring ] || signed="[signed-by=$debian_keyring] "
  mkdir -p "$folder/apt/lists/partial" "$folder/apt/archives/partial"
  printf 'deb-src %s%s %s main\n' "$signed" "$uri" "$suite" >"$folder/apt/sources.list"
  local apt=(apt-get -q -o "Dir::Etc::SourceList=$folder/apt/sources.list" -o Dir::Etc::SourceParts=-
    -o "Dir::State=$folder/apt" -o Dir::State::status=/var/lib/dpkg/status -o "Dir::Cache=$folder/apt"
    -o APT::Sandbox::User=)
  "${apt[@]}" update || return 1
  (cd "$folder" && "${apt[@]}" source --download-only "$package=$version") || return 1
  dpkg-source --no-check -x "$folder/${package}_$(sed 's/^[0-9]*://' <<<"$version").dsc" "$folder/source"
}
