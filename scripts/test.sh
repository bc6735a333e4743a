#!/usr/bin/env bash
# Builds, then runs every test through CTest. Window tests run on Qt's offscreen platform.
# WORDTALLY_BUILD_DIR names another build folder than build/ (extra arguments go to CMake).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/build.sh" "$@"
cd "$root/${WORDTALLY_BUILD_DIR:-build}"
# CTest lists skipped tests after its summary; the summary is repeated so that it ends the output.
log="$(mktemp)"
trap 'rm -f "$log"' EXIT
status=0
ctest --output-on-failure -j"$(nproc)" 2>&1 | tee "$log" || status=$?
grep -E '^[0-9]+% tests passed' "$log" | tail -n 1
exit "$status"
