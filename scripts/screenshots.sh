#!/bin/sh
# Takes the pictures of the desktop program that the README shows: the main window during and
# after counting a real book (docs/sample-texts), the results table, two charts, the keywords
# against another book, and the settings window, at the default size and scaled to 125%.
#
#   scripts/screenshots.sh [BUILD_DIR]     (default: build)
#
# Needs a build with the desktop program, xvfb-run and xauth. Writes docs/*.png.
set -eu

here=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-"$here/build"}
tool="$build/bin/wordtally-screenshots"
docs="$here/docs"

if [ ! -x "$tool" ]; then
  echo "no $tool: build the desktop program first (cmake --build $build)" >&2
  exit 1
fi
mkdir -p "$docs"

shoot() {  # suffix scale
  QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR="$2" \
    xvfb-run -a -s "-screen 0 1280x800x24" "$tool" "$docs/sample-texts" "$docs" "$1"
}

shoot "" 1
shoot "-125" 1.25
ls -l "$docs"/*.png
