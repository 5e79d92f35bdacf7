#!/bin/bash
# Builds the desktop program and starts it.
#
#   ./run.sh [--dir DIR] [--midi alsa|virtual|none] [FILE...]
#
# Packages that are lacking are installed first. The program works in ${ZENTALINE_HOME:-~/.local/share/zentaline}, which
# gets those factory files that it lacks; what is there is never written over. Where there is no display, the same
# program without a screen goes through a short tour instead.
set -euo pipefail
here=$PWD
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$root/build/release

# shellcheck source=cmake/packages.sh
. "$root/cmake/packages.sh"

cd "$root"
mkdir -p build
# Two of these at once would build into each other.
exec 9>build/run.lock
flock 9

packages_changed=0
if ! install_packages run; then
  say "Without these the program can't be built."
  exit 1
fi

configure() { cmake -S "$root" --preset release "$@" >"$build.log" 2>&1; }

# found ENTRY: whether the build was prepared with this library; one that came to the machine later is taken up.
found() { grep -q "^$1=/" "$build/CMakeCache.txt"; }
qt=Qt6_DIR:PATH alsa=ALSA_LIBRARY:FILEPATH

if [ ! -e "$build/build.ninja" ] || [ "$packages_changed" = 1 ] || ! found "$qt" || ! found "$alsa" ||
  ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build/CMakeCache.txt"; then
  say "Preparing the build"
  # A tree that was prepared for the tests keeps them. One that was moved or left half done is prepared anew.
  options=()
  [ -e "$build/build.ninja" ] || options=(-DZENTALINE_TESTS=OFF -DZENTALINE_BENCH=OFF)
  if ! configure "${options[@]}" && ! configure --fresh -DZENTALINE_TESTS=OFF -DZENTALINE_BENCH=OFF; then
    cat "$build.log" >&2
    say "The build could not be prepared."
    exit 1
  fi
fi

targets=(zentaline-console zentaline-multisample factory_files)
if found "$qt"; then targets+=(zentaline); fi
if [ -x "$build/bin/zentaline-console" ]; then say "Building what has changed"; else say "Building; the first time this takes some minutes"; fi
cmake --build "$build" --target "${targets[@]}"
exec 9>&-

# copy_lacking FROM TO: file by file, what TO lacks. A copy that breaks off leaves no half file under the real name.
copy_lacking() {
  local file target
  while IFS= read -r -d '' file; do
    target=$2/${file#"$1"/}
    if [ -e "$target" ] || [ -L "$target" ]; then continue; fi
    mkdir -p "$(dirname "$target")"
    cp "$file" "$target.part"
    mv "$target.part" "$target"
    say "New in the working directory: ${target#"$2"/}"
  done < <(find "$1" -type f -print0 | sort -z)
}

tour() {
  local work
  work=$(mktemp -d)
  # shellcheck disable=SC2064  # this directory, not one of a later day
  trap "rm -rf '$work'" EXIT
  say "There is no display here. A tour of the program without a screen, on its built-in instrument:"
  say "an example is opened and played, and at the end stands what the instrument holds."
  copy_lacking "$build/share/zentaline" "$work" >/dev/null
  # A dump has thousands of bytes: its beginning and its length tell enough.
  "$build/bin/zentaline-console" --midi virtual --dir "$work" "$root/examples/tour.zts" |
    awk '$1 == "long" && NF > 18 {
           line = $1; for (i = 2; i <= 14; i++) line = line " " $i
           print line " ... " $NF " (" NF - 2 " bytes)"; next }
         { print }'
  say "That was examples/tour.zts; write scripts of your own for build/release/bin/zentaline-console."
  if [ -x "$build/bin/zentaline" ]; then
    say "For the desktop program start ./run.sh in a graphical session (or over ssh -X)."
  else
    say "For the desktop program install qt6-base-dev and start ./run.sh in a graphical session."
  fi
}

if [ ! -x "$build/bin/zentaline" ]; then
  say "The desktop program was not built, since Qt 6 is not on this machine."
  tour
  exit
fi
if [ -z "${DISPLAY-}${WAYLAND_DISPLAY-}${QT_QPA_PLATFORM-}" ]; then
  [ $# = 0 ] || say "The arguments are for the desktop program and left aside: $*"
  tour
  exit
fi

# The program starts in its working directory, so that paths of the caller are made to hold there too.
from_here() { case $1 in /*) printf '%s' "$1" ;; *) printf '%s' "$here/$1" ;; esac; }
data_home=${XDG_DATA_HOME:-~/.local/share}
work=$(from_here "${ZENTALINE_HOME:-$data_home/zentaline}")
own_work='' midi='' arguments=()
while [ $# -gt 0 ]; do
  case $1 in
    --dir=*) own_work=$(from_here "${1#--dir=}") ;;
    --midi=*) midi=${1#--midi=} ;;
    --dir | --midi)
      if [ $# = 1 ]; then
        say "$1 needs a value."
        exit 2
      fi
      if [ "$1" = --dir ]; then own_work=$(from_here "$2"); else midi=$2; fi
      shift ;;
    -*) arguments+=("$1") ;;
    *) arguments+=("$(from_here "$1")") ;;
  esac
  shift
done

if [ -n "$own_work" ]; then
  # A folder that somebody names is taken as it is.
  work=$own_work
else
  mkdir -p "$work"
  copy_lacking "$build/share/zentaline" "$work"
fi

if [ -z "$midi" ]; then
  midi=virtual
  if ! found "$alsa"; then
    say "The program was built without ALSA: it plays to the instrument inside the program (--midi virtual)."
  elif [ ! -e /dev/snd/seq ]; then
    say "This machine has no MIDI sequencer (/dev/snd/seq): the program plays to the instrument inside it (--midi virtual)."
  elif [ ! -r /dev/snd/seq ] || [ ! -w /dev/snd/seq ]; then
    say "The MIDI sequencer (/dev/snd/seq) is closed to you; the group audio may use it. The program plays to the"
    say "instrument inside it (--midi virtual)."
  else
    midi=alsa
  fi
fi

say "Starting Zentaline in $work"
cd "$work"
exec "$build/bin/zentaline" --midi "$midi" "${arguments[@]}"
