#!/usr/bin/env bash
# Installs the Debian packages the build needs (clang and its libFuzzer runtime for the fuzz
# targets), and those named as arguments (what packaging needs), when any is missing.
set -euo pipefail

packages=(g++ cmake ninja-build pkg-config googletest libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev qt6-base-dev-tools qt6-charts-dev qt6-svg-dev libzip-dev zipcmp zipmerge ziptool
  libexpat1-dev libcli11-dev libabsl-dev xvfb xauth fonts-dejavu-core openmpi-bin libopenmpi-dev
  clang libclang-rt-14-dev "$@")

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
