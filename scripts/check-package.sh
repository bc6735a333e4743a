#!/usr/bin/env bash
# Checks the Debian package that scripts/package.sh built: the files it must hold, that
# dpkg-shlibdeps filled in its dependencies, the validators of its desktop entry, AppStream
# metadata and man pages, and that the programs as unpacked from it find their common-words
# files, print the package's version and complete their options in bash.
#
#   scripts/check-package.sh [DEB]      default: the package in build/
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh" desktop-file-utils appstream groff-base
deb=${1:-$(ls "$root"/build/wordtally_*_amd64.deb)}
app=io.github.wordtally.wordtally
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
dpkg-deb -x "$deb" "$tree"

passed=0 failed=0
check() {  # check WHAT COMMAND...: runs COMMAND and counts its outcome
  local what=$1
  shift
  if "$@"; then passed=$((passed + 1)); else echo "FAILED: $what" >&2; failed=$((failed + 1)); fi
}
same() { [ "$1" = "$2" ] || { printf '  got:      %q\n  expected: %q\n' "$1" "$2" >&2; false; }; }
contains() { [[ $1 == *"$2"* ]]; }
clean_man_page() {  # groff's warnings about a compressed man page: none expected
  local warnings
  warnings=$(zcat "$1" | groff -man -ww -z -Tutf8 2>&1)
  same "$warnings" ""
}

expected=(usr/bin/wordtally usr/bin/wordtally-gui usr/share/applications/$app.desktop
  usr/share/icons/hicolor/scalable/apps/$app.svg usr/share/metainfo/$app.metainfo.xml
  usr/share/man/man1/wordtally.1.gz usr/share/man/man1/wordtally-gui.1.gz
  usr/share/bash-completion/completions/wordtally)
for words in "$root"/data/cwds_*.txt; do expected+=("usr/share/wordtally/${words##*/}"); done
for file in "${expected[@]}"; do check "/$file in the package" test -f "$tree/$file"; done

depends=$(dpkg-deb -f "$deb" Depends)
check "dependencies from dpkg-shlibdeps: $depends" contains "$depends" libqt6widgets6

desktop=$tree/usr/share/applications/$app.desktop
check "desktop-file-validate" desktop-file-validate "$desktop"
check "the desktop entry's Exec" grep -qx 'Exec=wordtally-gui %F' "$desktop"
check "appstreamcli" appstreamcli validate --no-net "$tree/usr/share/metainfo/$app.metainfo.xml"
for page in "$tree"/usr/share/man/man1/*.1.gz; do check "${page##*/}" clean_man_page "$page"; done

wordtally=$tree/usr/bin/wordtally
version=$(dpkg-deb -f "$deb" Version)
check "wordtally --version" same "$("$wordtally" --version)" "wordtally $version"
# "the" and "and" are common English words, which --language en finds in /usr/share/wordtally.
check "wordtally --language en" same "$(echo "The cat and the hat." |
  "$wordtally" --language en --format 8 - 2>/dev/null)" $'Word (longest has 3 characters)\ncat\nhat'

completions() {  # the words bash offers after wordtally ARGS...
  bash -c 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
           _wordtally "$1"; echo "${COMPREPLY[*]}"' \
    - "$tree/usr/share/bash-completion/completions/wordtally" "$wordtally" "$@"
}
check "completion of an option" same "$(completions --lang)" "--language"
check "completion of --language" same "$(completions --language '')" "en de es pt it fr all"
check "completion of --format" same "$(completions --format '')" "0 1 2 3 4 5 6 7 8 9"

echo "packaging: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
