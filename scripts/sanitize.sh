#!/usr/bin/env bash
# Builds the core, the command line and every core and command-line test with AddressSanitizer
# and UndefinedBehaviorSanitizer into build-sanitize/ and runs them. The desktop program and its
# window tests are left out: they add little engine code and would double the build's time.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
export ASAN_OPTIONS="${ASAN_OPTIONS:-abort_on_error=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}"
WORDTALLY_BUILD_DIR=build-sanitize exec bash "$root/scripts/test.sh" \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DWORDTALLY_SANITIZE=ON -DWORDTALLY_GUI=OFF \
  -DWORDTALLY_BENCH=OFF "${launcher[@]}"
