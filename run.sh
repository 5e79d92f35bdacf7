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

tour() {
  local work
  work=$(mktemp -d)
  # shellcheck disable=SC2064  # this directory, not one of a later day
  trap "rm -rf '$work'" EXIT
  say "There is no display here. A tour of the program without a screen, on its built-in instrument:"
  say "an example is opened and played, and at the end stands what the instrument holds."
  cp -r "$build/share/zentaline/." "$work"
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

# A folder that somebody names is taken as it is.
place=(--home) chosen=0
for argument in "$@"; do
  case $argument in
    --dir | --dir=*) place=() ;;
    --midi | --midi=*) chosen=1 ;;
    --) break ;;
  esac
done

service=()
if [ "$chosen" = 0 ]; then
  service=(--midi virtual)
  if ! found "$alsa"; then
    say "The program was built without ALSA: it plays to the instrument inside the program (--midi virtual)."
  elif [ ! -e /dev/snd/seq ]; then
    say "This machine has no MIDI sequencer (/dev/snd/seq): the program plays to the instrument inside it (--midi virtual)."
  elif [ ! -r /dev/snd/seq ] || [ ! -w /dev/snd/seq ]; then
    say "The MIDI sequencer (/dev/snd/seq) is closed to you; the group audio may use it. The program plays to the"
    say "instrument inside it (--midi virtual)."
  else
    service=(--midi alsa)
  fi
fi

say "Starting Zentaline"
cd "$here"
exec "$build/bin/zentaline" "${place[@]}" "${service[@]}" "$@"
