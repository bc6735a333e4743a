#!/usr/bin/env bash
# Installs what is missing and builds everything into build/, or into the folder named by
# WORDTALLY_BUILD_DIR (extra arguments go to CMake).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh"
build="$root/${WORDTALLY_BUILD_DIR:-build}"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@" >/dev/null
cmake --build "$build" -j"$(nproc)"
