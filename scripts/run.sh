#!/usr/bin/env bash
# Builds, then starts the desktop program; with arguments, runs the command line instead.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/build.sh" >&2
if [ $# -eq 0 ]; then
  exec "$root/build/bin/wordtally-gui"
fi
exec "$root/build/bin/wordtally" "$@"
