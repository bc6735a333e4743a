#!/usr/bin/env bash
# Builds the Debian package build/wordtally_<version>_amd64.deb (extra arguments go to CMake).
# CPack's DEB generator needs dpkg-shlibdeps (dpkg-dev) and file to work out the dependencies.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh" dpkg-dev file
bash "$root/scripts/build.sh" "$@"
cd "$root/build"
cpack
