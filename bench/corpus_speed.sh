#!/usr/bin/env bash
# Times corpus runs against one-file runs of the same total size: each file of a corpus should be
# counted in about the time its bytes take inside one file.
#
#   bench/corpus_speed.sh [BUILD_DIR]     (default: build-release, configured and built here)
#
# Cases, each the median wall time of RUNS runs (default 3) of
#   wordtally --order frequency --output out.txt INPUTS
#   1. 1,000 small files cut from the King James Bible text vs that text in one file;
#   2. 20 files of 52 MB vs one file of 1,040 MB (copies of the text; made one case at a time,
#      so that at most about 1 GB is on disk).
# Environment: KJV_FILE (default ../shared/corpus/kjvbible.txt beside the repository), RUNS,
# SCRATCH (default a fresh temporary folder, removed at the end).
set -euo pipefail

repo=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${1:-build-release}
[[ $build_dir = /* ]] || build_dir="$repo/$build_dir"
kjv=${KJV_FILE:-"$repo/../shared/corpus/kjvbible.txt"}
runs=${RUNS:-3}
fail() { echo "corpus_speed.sh: $*" >&2; exit 1; }
[[ -r $kjv ]] || fail "cannot read the source text $kjv (set KJV_FILE)"

cmake -S "$repo" -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DWORDTALLY_GUI=OFF \
  -DWORDTALLY_BENCH=OFF -DWORDTALLY_TESTS=OFF -DCMAKE_CXX_COMPILER_LAUNCHER=ccache > /dev/null
cmake --build "$build_dir" --target wordtally > /dev/null
wordtally="$build_dir/bin/wordtally"

scratch=${SCRATCH:-$(mktemp -d)}
mkdir -p "$scratch"
trap 'rm -rf "$scratch"' EXIT

# median_seconds INPUTS...: the median wall time of the runs, in seconds.
median_seconds() {
  local i start end times=()
  for ((i = 0; i < runs; i++)); do
    start=$(date +%s.%N)
    "$wordtally" --order frequency --output "$scratch/out.txt" "$@" > /dev/null
    end=$(date +%s.%N)
    times+=("$(echo "$end - $start" | bc)")
  done
  printf '%s\n' "${times[@]}" | sort -n | sed -n "$(((runs + 1) / 2))p"
}

# compare LABEL CORPUS_SECONDS ONE_FILE_SECONDS
compare() {
  printf '%-34s corpus %8.3f s   one file %8.3f s   ratio %.2f\n' "$1" "$2" "$3" \
    "$(echo "$2 / $3" | bc -l)"
}

# 1,000 pieces of the text, and the text itself.
mkdir "$scratch/small"
split -n 1000 -d -a 4 --additional-suffix=.txt "$kjv" "$scratch/small/piece"
compare "1,000 small files vs one file" "$(median_seconds "$scratch/small")" \
  "$(median_seconds "$kjv")"
rm -rf "$scratch/small"

# One file of 1,040 MB, then 20 files of 52 MB.
copies() { local i; for ((i = 0; i < $1; i++)); do cat "$kjv"; done; }
copies 240 > "$scratch/one.txt"
one=$(median_seconds "$scratch/one.txt")
rm "$scratch/one.txt"
mkdir "$scratch/twenty"
copies 12 > "$scratch/twenty/00.txt"
for i in $(seq -w 1 19); do cp "$scratch/twenty/00.txt" "$scratch/twenty/$i.txt"; done
compare "20 files of 52 MB vs one of 1 GB" "$(median_seconds "$scratch/twenty")" "$one"
