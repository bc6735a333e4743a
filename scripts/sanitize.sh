#!/usr/bin/env bash
# Builds the core, the command line and every core and command-line test with clang,
# AddressSanitizer and UndefinedBehaviorSanitizer into build-sanitize/ and runs them. The same
# build holds the fuzz targets (scripts/fuzz.sh), so CI compiles the core once for both. The
# desktop program and its window tests are left out: they add little engine code and would
# double the build's time. So is the MPI front end: the MPI library's own start-up allocations
# would be reported as leaks, and its tests compare it with the sanitized command line anyway.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}"
WORDTALLY_BUILD_DIR=build-sanitize exec bash "$root/scripts/test.sh" \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ -DWORDTALLY_SANITIZE=ON \
  -DWORDTALLY_FUZZ=ON -DWORDTALLY_GUI=OFF -DWORDTALLY_MPI=OFF -DWORDTALLY_BENCH=OFF "${launcher[@]}"
