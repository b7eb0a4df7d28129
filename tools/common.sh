# Shared by the commands at the root. Sourced with the project's folder as the current one.

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

# What each command needs, as Debian's packages.
packages_build="g++ cmake ninja-build ccache libwxgtk3.2-dev libcli11-dev nlohmann-json3-dev"
packages_show="xvfb xauth xdotool openbox imagemagick x11-utils fonts-dejavu-core jq"
packages_check="libgtest-dev libgmock-dev libbenchmark-dev liblz4-dev libdeflate-dev clang-format clang-tidy clang libclang-rt-14-dev mandoc $packages_show"

# install_missing PACKAGE...: installs those that are not there, as root or through sudo.
install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing: ${missing[*]}"
  local become=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || die "These packages are missing, and there is no sudo to install them with: ${missing[*]}"
    become=(sudo)
  fi
  "${become[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${become[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [CMAKE-OPTION...]: configures and builds below build/PRESET; compiled files are kept in ccache's folder.
build() {
  local preset=$1 launcher=()
  shift
  # Without this ccache would keep nothing that uses precompiled headers.
  export CCACHE_SLOPPINESS=pch_defines,time_macros
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake --preset "$preset" "${launcher[@]}" "$@" >"build-$preset.log" 2>&1 || { cat "build-$preset.log"; rm -f "build-$preset.log"; die "CMake could not set up the build."; }
  rm -f "build-$preset.log"
  cmake --build --preset "$preset" -- --quiet
}
