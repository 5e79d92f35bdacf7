#!/bin/bash
# Builds everything and runs the tests. The last line is the test runner's own summary; any failure makes the exit
# status 1.
#
#   ./test.sh         the release build with the transcripts, the tests of the desktop and the checks of the tree, the
#                     unit tests and the transcripts under the address, undefined and leak sanitizers in a build
#                     without Qt and ALSA
#   ./test.sh quick   the release build with its unit tests and transcripts, and the checks
#   ./test.sh full    all of the first, the unit tests of the release build too, the ALSA tests in a kernel with a
#                     sequencer, the package installed into a fresh system, every kind of save killed at every call
#                     that changes the disk, the scripts on the desktop's widgets under the sanitizers too, short fuzz
#                     runs, and which lines of the program's logic the unit tests and transcripts run: 95 % at least
#
# Packages that are lacking are installed first.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scope=${1:-default}
case $# in 0 | 1) ;; *) scope=wrong ;; esac
case $scope in
  default | quick | full) ;;
  *)
    echo "use: ./test.sh [quick|full]" >&2
    exit 2
    ;;
esac

# shellcheck source=cmake/packages.sh
. "$root/cmake/packages.sh"
cd "$root"
mkdir -p build

packages="test"
if [ "$scope" = full ]; then packages="full"; fi
if ! install_packages "$packages"; then
  say "Without these the tests can't be built. ./test.sh needs them all, so that nothing is left untested unseen."
  exit 1
fi

# Tests of windows draw into memory, so that they need no display and leave the one that is there alone.
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}

build() { # build PRESET [OPTION...]; of its targets those that $targets names
  local preset=$1
  shift
  say "Building $preset"
  # With another compiler than before CMake forgets what the preset says.
  { cmake -S . --preset "$preset" "$@" >"build/$preset.log" 2>&1 &&
    ! grep -q 'variables have changed' "build/$preset.log"; } ||
    cmake -S . --preset "$preset" --fresh "$@" >"build/$preset.log" 2>&1 || {
    cat "build/$preset.log" >&2
    say "The build $preset could not be prepared."
    return 1
  }
  # shellcheck disable=SC2086  # names of targets, parted by blanks; none for all of them
  cmake --build "build/$preset" ${targets:+--target $targets}
}

# run.sh prepares the release build without the tests; here they are wanted, and every part of the program with them.
# Most of a build's time goes into the unit tests; the sanitizers' build has them where there is one.
unit_tests=ON
if [ "$scope" = default ]; then unit_tests=OFF; fi
build release -DZENTALINE_TESTS=ON -DZENTALINE_UNIT_TESTS=$unit_tests -DZENTALINE_BENCH=ON -DZENTALINE_QT=ON \
  -DZENTALINE_ALSA=ON

labels=()
folders=(release)
extra=()
if [ "$scope" = quick ]; then
  labels=(-L '^(unit|transcript|check)$')
else
  build sanitize
  folders+=(sanitize)
fi

# add_test_line NAME SECONDS COMMAND...: one more test for the runner; exit status 77 or 125 is "left out".
add_test_line() {
  local name=$1 seconds=$2 command=''
  shift 2
  for word in "$@"; do command+=" [==[$word]==]"; done
  extra+=("add_test([==[$name]==]$command)")
  extra+=("set_tests_properties([==[$name]==] PROPERTIES TIMEOUT $seconds SKIP_RETURN_CODE 125 RUN_SERIAL ON)")
}

if [ "$scope" = full ]; then
  build coverage
  add_test_line coverage 2400 "$root/tests/coverage/run" "$root/build/coverage"
  add_test_line kernel.alsa_tests 1200 "$root/tests/alsa/run-in-kernel" "$root/build/release/tests/alsa_tests"
  add_test_line crash.kills 1200 "$root/tests/crash/kills" "$root/build/release/bin/zentaline-console" \
    "$root/build/release/share/zentaline"
  targets='zentaline zentaline-console zentaline-desktop-script factory_files' build sanitize-desktop
  add_test_line desktop.sanitized 3600 ctest --test-dir "$root/build/sanitize-desktop" \
    -R '^sanitize-desktop[.]desktop[.]' -j "$(nproc)" --output-on-failure --no-tests=error
  say "Making the package"
  ./package.sh
  add_test_line package 1200 "$root/tests/package/run" "$root"/build/package/zentaline_*.deb
  build fuzz
  for program in build/fuzz/bin/fuzz_*; do
    [ -x "$program" ] || continue
    name=${program##*/}
    mkdir -p "build/fuzz/corpus/$name"
    add_test_line "fuzz.${name#fuzz_}" 300 "$root/$program" -max_total_time=30 -timeout=10 -rss_limit_mb=2048 \
      "$root/build/fuzz/corpus/$name" "$root/build/fuzz/seeds/${name#fuzz_}"
  done
fi

# One run over all builds, so that one summary tells of everything.
all=$root/build/tests-$scope
mkdir -p "$all"
{
  for folder in "${folders[@]}"; do echo "subdirs([==[$root/build/$folder]==])"; done
  if [ ${#extra[@]} -gt 0 ]; then printf '%s\n' "${extra[@]}"; fi
} >"$all/CTestTestfile.cmake"

say "Running the tests"
status=0
ctest --test-dir "$all" --output-on-failure -j "$(nproc)" "${labels[@]}" --no-tests=error 2>&1 |
  tee "$all/output.log" || status=1
if grep -q '(Skipped)' "$all/output.log"; then
  say "Left out on this machine (their own output tells why: $all/Testing/Temporary/LastTest.log):"
  grep -o '[^ ]* (Skipped)$' "$all/output.log" | sort -u
fi
if [ "$scope" = full ] && [ -r build/coverage/coverage.txt ]; then
  say "Lines of the program's logic that no test runs:"
  cat build/coverage/coverage.txt
fi
grep 'tests passed' "$all/output.log" || status=1
exit "$status"
