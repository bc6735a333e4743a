#!/usr/bin/env bash
# Installs what is missing and builds everything into build/ (extra arguments go to CMake).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh"
cmake -S "$root" -B "$root/build" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@" >/dev/null
cmake --build "$root/build" -j"$(nproc)"
