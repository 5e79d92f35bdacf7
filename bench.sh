#!/bin/bash
# Builds the release preset and runs the benchmarks: one table of ratios, each with its limit and a verdict.
#
#   ./bench.sh [NAME...]    only the programs whose names hold one of these words
#
# A benchmark is a program build/release/bin/bench_*. Whatever else it prints, each of its results is a line
#
#   bench NAME RATIO <=|>= LIMIT TEXT...
#
# NAME is one word; RATIO is what was measured as a multiple of a plain yardstick of the same run (never a time, which
# says little of another machine); <= LIMIT is a most, >= LIMIT a least; TEXT tells what is compared with what.
# A line "bench NAME skip TEXT..." says why a result can't be had on this machine. The exit status is 0 when every
# program ran to its end and every limit was kept.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

# shellcheck source=cmake/packages.sh
. cmake/packages.sh
mkdir -p build
if ! install_packages "test"; then
  say "Without these the benchmarks can't be built."
  exit 1
fi

say "Building release"
cmake -S . --preset release -DZENTALINE_BENCH=ON >build/release.log 2>&1 || {
  cat build/release.log >&2
  exit 1
}
cmake --build build/release

# Benchmarks of the desktop program draw into memory.
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}

status=0
lines=build/bench.txt
: >"$lines"
for program in build/release/bin/bench_*; do
  if [ ! -x "$program" ]; then continue; fi
  wanted=$#
  for word in "$@"; do case ${program##*/} in *"$word"*) wanted=0 ;; esac done
  [ "$wanted" = 0 ] || continue
  say "Running ${program##*/}"
  # What goes over the wire is measured on a kernel that surely has a sequencer and ports with nobody else at them.
  under=()
  if [ "${program##*/}" = bench_wire ]; then under=(tests/alsa/run-in-kernel); fi
  result=0
  "${under[@]}" "$program" >build/bench.log 2>&1 || result=$?
  if [ "$result" = 125 ] && [ ${#under[@]} -gt 0 ]; then
    echo "bench ${program##*/} skip no kernel with a sequencer could be started: $(tail -n 1 build/bench.log)" >>"$lines"
    continue
  fi
  if [ "$result" != 0 ]; then
    cat build/bench.log >&2
    say "${program##*/} failed."
    status=1
  fi
  if ! grep '^bench ' build/bench.log >>"$lines"; then
    say "${program##*/} gave no result."
    status=1
  fi
done

awk '
  function text(first,  i, joined) {
    joined = ""
    for (i = first; i <= NF; i++) joined = joined (i > first ? " " : "") $i
    return joined
  }
  function number(word) { return word ~ /^-?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][-+]?[0-9]+)?$/ }
  BEGIN { printf "\n%-28s %12s %12s  %-7s  %s\n", "benchmark", "ratio", "limit", "verdict", "what is compared" }
  $3 == "skip" { printf "%-28s %12s %12s  %-7s  %s\n", $2, "-", "-", "left out", text(4); next }
  # Nothing that is measured is negative: a program gives such a number when what it measured did not come about.
  !number($3) || $3 < 0 || ($4 != "<=" && $4 != ">=") || !number($5) {
    printf "%-28s %12s %12s  %-7s  %s\n", $2, "?", "?", "FAILED", "no result line: " $0
    bad = 1
    next
  }
  {
    kept = $4 == "<=" ? $3 + 0 <= $5 + 0 : $3 + 0 >= $5 + 0
    if (!kept) bad = 1
    printf "%-28s %12.4g %12s  %-7s  %s\n", $2, $3, $4 " " $5, kept ? "kept" : "FAILED", text(6)
  }
  END { exit bad }' "$lines" || status=1
exit "$status"
