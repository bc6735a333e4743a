#!/usr/bin/env bash
# Compares the command line's speed and peak memory with a tuned C word counter and with wc -w.
#
#   bench/compare_speed.sh [--huge] [BUILD_DIR]      (default BUILD_DIR: build-release)
#
# Configures and builds BUILD_DIR as a Release tree without the desktop program and the tests,
# builds bench/tuned_counter.c, and makes in a scratch folder
#   kjv10.txt      ten copies of the King James Bible text (43,325,060 bytes),
#   distinct2m.txt two million different words, ten to a line, each once,
#   distinct10m.txt ten million different words, likewise,
#   huge.txt       (with --huge only) thirty copies of kjv10.txt, about 1.3 GB, for the memory check.
# For each input it runs, interleaved, RUNS times (default 7)
#   wordtally --order frequency --output FILE INPUT   (the default rules, by frequency, file out;
#                                                     every core)
#   the same with --threads 1
#   tuned_counter INPUT
#   wc -w INPUT
# and prints the median wall time of each, the ratios, and the median peak memory.
#
# Environment: KJV_FILE (default ../shared/corpus/kjvbible.txt beside the repository), RUNS,
# SCRATCH (folder for the inputs, kept; default a temporary folder removed at the end).
set -euo pipefail

repo=$(cd "$(dirname "$0")/.." && pwd)
huge=0
if [[ ${1:-} == --huge ]]; then
  huge=1
  shift
fi
build_dir=${1:-build-release}
[[ $build_dir = /* ]] || build_dir="$repo/$build_dir"
kjv=${KJV_FILE:-"$repo/../shared/corpus/kjvbible.txt"}
runs=${RUNS:-7}

fail() { echo "compare_speed.sh: $*" >&2; exit 1; }
[[ -r $kjv ]] || fail "cannot read the source text $kjv (set KJV_FILE)"
[[ -x /usr/bin/time ]] || fail "/usr/bin/time is needed (package 'time')"

if [[ -n ${SCRATCH:-} ]]; then
  scratch=$SCRATCH
  mkdir -p "$scratch"
else
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
fi

cmake -S "$repo" -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DWORDTALLY_GUI=OFF \
  -DWORDTALLY_TESTS=OFF > /dev/null
cmake --build "$build_dir" --target wordtally > /dev/null
wordtally="$build_dir/bin/wordtally"
counter="$scratch/tuned_counter"
cc -O2 -march=native -o "$counter" "$repo/bench/tuned_counter.c"

# distinct_words TARGET COUNT: COUNT different words ("wa" and five letters), ten to a line.
distinct_words() {
  [[ -s $1 ]] && return
  awk -v count="$2" 'BEGIN {
    split("abcdefghijklmnopqrstuvwxyz", letter, "")
    for (i = 0; i < count; i++) {
      word = "wa"; n = i
      for (k = 0; k < 5; k++) { word = word letter[n % 26 + 1]; n = int(n / 26) }
      printf "%s%s", word, (i % 10 == 9 ? "\n" : " ")
    }
    print ""
  }' > "$1"
}

# copies TARGET COUNT SOURCE: COUNT copies of SOURCE, one after another.
copies() {
  [[ -s $1 ]] && return
  local i
  for ((i = 0; i < $2; i++)); do cat "$3"; done > "$1"
}

inputs=("$scratch/kjv10.txt" "$scratch/distinct2m.txt" "$scratch/distinct10m.txt")
copies "${inputs[0]}" 10 "$kjv"
distinct_words "${inputs[1]}" 2000000
distinct_words "${inputs[2]}" 10000000
if ((huge)); then
  inputs+=("$scratch/huge.txt")
  copies "$scratch/huge.txt" 30 "${inputs[0]}"
fi

# measure NAME COMMAND...: runs the command once; appends "seconds peak_KiB" to $scratch/NAME.
measure() {
  local name=$1 start end
  shift
  start=$(date +%s%N)
  /usr/bin/time -f %M -o "$scratch/peak" "$@" > /dev/null
  end=$(date +%s%N)
  echo "$(( (end - start) / 1000000 )) $(cat "$scratch/peak")" >> "$scratch/$name"
}

# median NAME COLUMN: the median of a column of $scratch/NAME.
median() {
  cut -d' ' -f"$2" "$scratch/$1" | sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'
}

echo "wordtally: $wordtally   runs per program: $runs   (times in seconds, medians)"
printf '%-16s %10s %8s %8s %8s %8s %8s %8s %8s %11s %11s\n' input bytes ours ours-1t C wc-w \
  ours/C 1t/C ours/wc "ours_peak" "C_peak"
for input in "${inputs[@]}"; do
  cat "$input" > /dev/null  # every run finds the file in the page cache
  rm -f "$scratch"/{ours,ours1,c,wc}
  for ((run = 0; run < runs; run++)); do
    measure ours "$wordtally" --order frequency --output "$scratch/out.txt" "$input"
    measure ours1 "$wordtally" --threads 1 --order frequency --output "$scratch/out.txt" "$input"
    measure c "$counter" "$input"
    measure wc wc -w "$input"
  done
  ours=$(median ours 1) ours1=$(median ours1 1) c=$(median c 1) wc=$(median wc 1)
  awk -v name="$(basename "$input" .txt)" -v bytes="$(stat -c %s "$input")" -v ours="$ours" \
    -v ours1="$ours1" -v c="$c" -v wc="$wc" -v peak="$(median ours 2)" \
    -v cpeak="$(median c 2)" 'BEGIN {
      printf "%-16s %10d %8.3f %8.3f %8.3f %8.3f %8.2f %8.2f %8.2f %7.1f MiB %7.1f MiB\n", name,
        bytes, ours / 1000, ours1 / 1000, c / 1000, wc / 1000, ours / c, ours1 / c, ours / wc,
        peak / 1024, cpeak / 1024
    }'
done
