#!/usr/bin/env bash
# Builds, then runs every test through CTest. Window tests run on Qt's offscreen platform.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/build.sh" "$@"
cd "$root/build"
exec ctest --output-on-failure -j"$(nproc)"
