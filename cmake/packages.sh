# shellcheck shell=bash
# The Debian packages that the project's commands use, and how they get onto the machine. Sourced, not run.
#
#   install_packages run|test|full|package    installs what that command lacks; 1 when a needed package can't be had
#
# need: the command can't do without it.  want: it says what is left out and goes on, and does not try that one again
# while the file build/packages-left-out names it.

packages_list() {
  cat <<'LIST'
# package              run   test  full  package  what for
cmake                  need  need  need  need     the build
ninja-build            need  need  need  need     the build
g++                    need  need  need  need     the compiler
qt6-base-dev           want  need  need  need     the desktop program
qt6-wayland            want  -     -     -        the desktop program on Wayland
qt6-translations-l10n  want  need  need  -        the words of Qt's own dialogs
libasound2-dev         want  need  need  need     the MIDI ports of this machine
zlib1g-dev             need  need  need  need     the journal
libdeflate-dev         need  need  need  need     check sums of files, at the speed of reading them
ccache                 -     want  want  want     building again in less time
libgtest-dev           -     need  need  -        the tests
libgmock-dev           -     need  need  -        the tests
libbenchmark-dev       -     need  need  -        the benchmarks
clang-format           -     want  want  -        the check of the code's form
shellcheck             -     want  want  -        the check of the shell scripts
clang                  -     need  need  -        the build with the sanitizers, and the fuzz programs
gcovr                  -     -     need  -        which lines the tests run
lowdown                -     -     need  need     the man pages
lintian                -     -     need  need     the examination of the package
appstream              -     -     need  need     the examination of what software catalogues show
desktop-file-utils     -     -     need  need     the examination of the desktop entry
file                   -     -     need  need     the libraries that the package depends on
strace                 -     -     need  -        the program killed at each of its calls
mmdebstrap             -     -     need  -        a fresh system to install the package into
LIST
}

# mktemp and the programs that are built fail with a TMPDIR that isn't there.
if [ ! -w "${TMPDIR:-/tmp}" ]; then unset TMPDIR; fi

say() { printf '%s\n' "-- $*"; }

package_is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# as_root COMMAND...: asks for a password only where somebody can type it.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif sudo -n true 2>/dev/null; then
    sudo -n "$@"
  elif command -v sudo >/dev/null && [ -t 0 ]; then
    sudo "$@"
  else
    echo "neither root nor sudo without a password" >&2
    return 1
  fi
}

# run_apt COMMAND...: apt-get, which asks nothing and waits for another one to end. Its output goes to $packages_log.
run_apt() {
  local try
  for try in 1 2 3 4 5 6 7 8 9 10 11 12; do
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@" \
      </dev/null >"$packages_log" 2>&1 && return 0
    # The lists have a lock of their own, for which apt-get does not wait.
    grep -q 'Could not get lock' "$packages_log" || return 1
    [ "$try" != 1 ] || say "Another package manager is at work; waiting for it"
    sleep 10
  done
  return 1
}

packages_reason() {
  local reason
  reason=$(grep -m 1 -E '^E: |sudo|root' "$packages_log" || true)
  printf '%s' "${reason:-$(tail -n 1 "$packages_log")}"
}

install_packages() {
  local command=$1 package run test full deb purpose weight missing=() failed=0 left_out=build/packages-left-out
  local -A weight_of=() purpose_of=()
  while read -r package run test full deb purpose; do
    [ "$package" != '#' ] || continue
    case $command in run) weight=$run ;; test) weight=$test ;; full) weight=$full ;; *) weight=$deb ;; esac
    [ "$weight" != - ] || continue
    weight_of[$package]=$weight purpose_of[$package]=$purpose
    if package_is_installed "$package"; then continue; fi
    if [ "$weight" = want ] && grep -qx "$package" "$left_out" 2>/dev/null; then
      say "Going without $package ($purpose), which could not be installed before; $left_out remembers it"
    else
      missing+=("$package")
    fi
  done < <(packages_list)
  [ ${#missing[@]} -gt 0 ] || return 0

  if ! command -v apt-get >/dev/null; then
    say "This machine has no apt-get. What the project uses goes here by these names of Debian packages: ${missing[*]}"
    return 0
  fi

  packages_log=$(mktemp)
  say "Installing ${missing[*]}"
  # Lists that are as new as need be are not fetched again.
  if ! run_apt install --no-install-recommends "${missing[@]}"; then
    say "Fetching the lists of packages"
    run_apt update || say "The lists of packages could not be fetched: $(packages_reason)"
    if ! run_apt install --no-install-recommends "${missing[@]}"; then
      for package in "${missing[@]}"; do
        run_apt install --no-install-recommends "$package" && continue
        say "The package $package could not be installed (${purpose_of[$package]}): $(packages_reason)"
        if [ "${weight_of[$package]}" = need ]; then failed=1; else echo "$package" >>"$left_out"; fi
      done
    fi
  fi
  rm -f "$packages_log"
  # shellcheck disable=SC2034  # read by who sourced this
  packages_changed=1
  return "$failed"
}
