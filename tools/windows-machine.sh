#!/usr/bin/env bash
# Runs a command in a small Debian of its own, in which Wine runs 32-bit Windows programs.
#
# The Debian is made once by debootstrap and cached. Each run works on an overlay that is discarded afterwards, has no
# network, and has processes, mounts and a virtual display of its own. The command runs as the unprivileged user "player"
# with an initialised Wine prefix.
set -euo pipefail
own=$(readlink -f "$0")
. "$(dirname "$own")/common.sh"

usage() {
  cat <<'TEXT2'
Usage: tools/windows-machine.sh [--read FOLDER]... [--write FOLDER]... [--display NUMBER] COMMAND [ARGUMENT]...

  --read FOLDER     mounts a folder of this machine at the same path, read-only
  --write FOLDER    the same, writable
  --display NUMBER  uses a display of this machine without access control, instead of a virtual one

Exits with the command's status, or with 77 if this machine does not permit mounting.
TEXT2
}

not_permitted=77
packages="wine wine32 xvfb xauth"
player=1000

skip() {
  say "No Windows programs can be run here: $*" >&2
  exit $not_permitted
}

# prepare FOLDER SUITE URI: makes the Debian, its user and Wine's prefix.
prepare() {
  local tree=$1 suite=$2 uri=$3
  rm -rf "$tree"
  debootstrap --arch=i386 --variant=minbase ${debian_keyring:+--keyring="$debian_keyring"} --include="${packages// /,}" "$suite" "$tree" "$uri" || return 1
  rm -rf "$tree"/var/cache/apt/archives/*.deb "$tree"/var/lib/apt/lists/* || return 1
  chroot "$tree" useradd --uid $player --create-home player || return 1
  unshare --mount --net --pid --ipc --fork --kill-child "$own" --inside "$tree" "$tree" "" -- --setup || return 1
}

# mount_in ROOT [FOLDER MODE]...: mounts system folders and this machine's folders, visible only to this command.
mount_in() {
  local root=$1
  shift
  mount -t proc proc "$root/proc"
  mount --rbind /dev "$root/dev"
  mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
  mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
  while [ $# -gt 0 ]; do
    mkdir -p "$root$1"
    mount --bind "$1" "$root$1"
    [ "$2" = write ] || mount -o remount,bind,ro "$root$1"
    shift 2
  done
}

# in_there ROOT COMMAND...: runs a command as the player. ORAVIN_LOCKED_FOLDER is a folder that the player cannot write to.
in_there() {
  local root=$1
  shift
  chroot --userspec=$player:$player "$root" /usr/bin/env -i HOME=/home/player USER=player LANG=C.UTF-8 \
    PATH=/usr/local/bin:/usr/bin:/bin WINEPREFIX=/home/player/wine WINEARCH=win32 WINEDEBUG=-all \
    WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=" ORAVIN_LOCKED_FOLDER='Z:\usr\' "$@"
}

# inside TREE ROOT DISPLAY [FOLDER MODE]... -- COMMAND...: the part that runs in its own namespaces. No DISPLAY: a virtual one.
inside() {
  local tree=$1 root=$2 display=$3 binds=() status=0
  shift 3
  while [ "$1" != -- ]; do binds+=("$1"); shift; done
  shift
  mount --make-rprivate /
  if [ "$tree" != "$root" ]; then
    # An overlay in memory over the cached Debian.
    mount -t tmpfs tmpfs "$root"
    mkdir "$root/changes" "$root/work" "$root/all"
    mount -t overlay overlay -o "lowerdir=$tree,upperdir=$root/changes,workdir=$root/work" "$root/all"
    root=$root/all
  fi
  mount_in "$root" ${binds[@]+"${binds[@]}"}
  if [ "$1" = --setup ]; then
    in_there "$root" wineboot --init && in_there "$root" wineserver --wait
    return
  fi
  in_there "$root" sh -c '
    if [ -z "$1" ]; then Xvfb :0 -screen 0 1280x1024x24 >/dev/null 2>&1 & fi
    export DISPLAY=:${1:-0}
    shift
    for i in $(seq 100); do [ -e "/tmp/.X11-unix/X${DISPLAY#:}" ] && break; sleep 0.05; done
    cd /tmp
    wineserver --persistent  # else it may exit between two programs
    "$@"
    status=$?
    wineserver --kill
    exit $status' sh "$display" "$@" || status=$?
  return $status
}

if [ "${1:-}" = --inside ]; then
  shift
  inside "$@"
  exit
fi

binds=()
display=
while [ $# -gt 0 ]; do
  case $1 in
    --display) display=$2; binds+=(/tmp/.X11-unix read); shift 2 ;;
    --read | --write) binds+=("$(readlink -f "$2")" "${1#--}"); shift 2 ;;
    --help) usage; exit 0 ;;
    --*) usage >&2; exit 2 ;;
    *) break ;;
  esac
done
[ $# -gt 0 ] || { usage >&2; exit 2; }

if [ "$(id -u)" -ne 0 ]; then
  sudo -n true 2>/dev/null || skip "that takes root, or sudo without a password."
  words=(${display:+--display "$display"})
  for ((i = 0; i < ${#binds[@]}; i += 2)); do words+=("--${binds[i + 1]}" "${binds[i]}"); done
  exec sudo -n env HOME="$HOME" XDG_CACHE_HOME="${XDG_CACHE_HOME:-}" "$own" ${words[@]+"${words[@]}"} "$@"
fi
(install_missing debootstrap) >&2 || skip "debootstrap cannot be installed."
unshare --mount --net --pid --ipc --fork --kill-child sh -c 'mount --make-rprivate / && mount -t tmpfs tmpfs /mnt' 2>/dev/null ||
  skip "mounting is not permitted."
suite=$(. /etc/os-release && printf '%s' "${VERSION_CODENAME:-}")
key=$(printf "%s\n" "$packages" "set up 1" | sha256sum | cut -c 1-12)
folder=$(cache_folder)/windows-machine-$suite-$key
mkdir -p "$(cache_folder)"
exec 9>"$folder.lock"
flock 9
if [ ! -e "$folder/complete" ]; then
  read -r uri suite <<<"$(debian_archive)"  # takes a second
  [ -n "$uri" ] || skip "no source of Debian's packages is set up."
  [ -e "$debian_keyring" ] || debian_keyring=
  say "Making a small Debian with Wine, once; the log is $folder.log" >&2
  mkdir -p "$folder"
  (prepare "$folder/tree" "$suite" "$uri") </dev/null >"$folder.log" 2>&1 || { tail -n 5 "$folder.log" >&2; skip "debootstrap failed."; }
  touch "$folder/complete"
fi
exec 9>&-

# given_back OWNER: sets the owner of the writable folders.
given_back() {
  local i
  for ((i = 0; i < ${#binds[@]}; i += 2)); do
    [ "${binds[i + 1]}" = read ] || chown -R "$1" "${binds[i]}"
  done
}
owner=$(stat -c %u:%g "$(dirname "$own")")
given_back $player:$player
status=0
mkdir -p "$folder/run"
# Everything in there ends with this script, even if it is killed.
setpriv --pdeathsig KILL unshare --mount --net --pid --ipc --fork --kill-child \
  "$own" --inside "$folder/tree" "$folder/run" "$display" ${binds[@]+"${binds[@]}"} -- "$@" ||
  status=$?
given_back "$owner"
exit $status
