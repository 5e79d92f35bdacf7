#!/bin/bash
# Makes the Debian package build/package/zentaline_VERSION_ARCHITECTURE.deb and has it examined.
#
#   ./package.sh
#
# Packages that are lacking are installed first. To install it: sudo apt install ./build/package/zentaline_*.deb
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# shellcheck source=cmake/packages.sh
. "$root/cmake/packages.sh"
cd "$root"
mkdir -p build
if ! install_packages package; then
  say "Without these the package can't be made."
  exit 1
fi

say "Building"
options=()
# A tree that was prepared for the tests keeps them.
[ -e build/release/build.ninja ] || options=(-DZENTALINE_TESTS=OFF -DZENTALINE_BENCH=OFF)
cmake -S . --preset release -DZENTALINE_QT=ON -DZENTALINE_ALSA=ON "${options[@]}" >build/release.log 2>&1 || {
  cat build/release.log >&2
  say "The build could not be prepared."
  exit 1
}
cmake --build build/release --target zentaline zentaline-console zentaline-multisample factory_files package_files

say "Making the package"
rm -rf build/package
(cd build/release && cpack -G DEB -B "$root/build/package") >build/package.log 2>&1 || {
  cat build/package.log >&2
  exit 1
}
rm -rf build/package/_CPack_Packages
deb=$(echo build/package/zentaline_*.deb)

say "Examining it"
desktop-file-validate packaging/zentaline.desktop
appstreamcli validate --no-net packaging/zentaline.metainfo.xml
lintian --allow-root --fail-on error "$deb"
dpkg-deb --contents "$deb" | awk '$1 !~ /^d/ { $1 = $2 = $3 = $4 = $5 = ""; sub(/^ +/, ""); print }'
say "Made $deb"
