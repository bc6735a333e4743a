#!/usr/bin/env bash
# Times the command line on large inputs and compares it with a shell word-count pipeline.
#
#   bench/run_speed.sh [BUILD_DIR]       (default: build)
#
# Makes big.txt (ten copies of the King James Bible text, 43,325,060 bytes) and huge.txt (a
# hundred copies, about 430 MB) in a scratch folder, then times, with /usr/bin/time -v,
#   wordtally --order frequency --output out.txt FILE
#   tr -cs A-Za-z '\n' < FILE | tr A-Z a-z | sort | uniq -c | sort -rn
# and prints the wall time and the peak memory of each run.
#
# Environment: KJV_FILE (the source text; default ../shared/corpus/kjvbible.txt beside the
# repository), RUNS (timed runs of wordtally per input, default 3), SCRATCH (folder for the
# inputs; default a fresh temporary folder, removed at the end), SKIP_PIPELINE=1 (time wordtally
# only).
set -euo pipefail

repo=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${1:-build}
[[ $build_dir = /* ]] || build_dir="$repo/$build_dir"
wordtally="$build_dir/bin/wordtally"
kjv=${KJV_FILE:-"$repo/../shared/corpus/kjvbible.txt"}
runs=${RUNS:-3}

fail() { echo "run_speed.sh: $*" >&2; exit 1; }
[[ -x $wordtally ]] || fail "no wordtally program at $wordtally (build it first)"
[[ -r $kjv ]] || fail "cannot read the source text $kjv (set KJV_FILE)"
[[ -x /usr/bin/time ]] || fail "/usr/bin/time is needed (package 'time')"

if [[ -n ${SCRATCH:-} ]]; then
  scratch=$SCRATCH
  mkdir -p "$scratch"
else
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
fi

# make_copies TARGET COUNT: COUNT copies of the source text, one after another.
make_copies() {
  local target=$1 count=$2 i
  for ((i = 0; i < count; i++)); do cat "$kjv"; done > "$target"
}

# timed LABEL COMMAND...: runs the command under /usr/bin/time -v and prints one summary line.
timed() {
  local label=$1 report="$scratch/time.txt"
  shift
  /usr/bin/time -v -o "$report" "$@" > /dev/null
  awk -v label="$label" '
    /Elapsed \(wall clock\) time/ { wall = $NF }
    /Maximum resident set size/   { rss = $NF }
    END { printf "%-36s wall %10s   peak memory %8.1f MiB\n", label, wall, rss / 1024 }
  ' "$report"
}

big="$scratch/big.txt"
huge="$scratch/huge.txt"
make_copies "$big" 10
make_copies "$huge" 100

echo "wordtally: $wordtally"
echo "scratch:   $scratch"
for input in "$big" "$huge"; do
  echo
  echo "$(basename "$input"): $(stat -c %s "$input") bytes"
  cat "$input" > /dev/null  # read once so that every run finds the file in the page cache
  for ((run = 1; run <= runs; run++)); do
    timed "wordtally (run $run)" \
      "$wordtally" --order frequency --output "$scratch/out.txt" "$input"
  done
  if [[ ${SKIP_PIPELINE:-0} != 1 ]]; then
    timed "tr | tr | sort | uniq -c | sort -rn" \
      sh -c "tr -cs A-Za-z '\n' < '$input' | tr A-Z a-z | sort | uniq -c | sort -rn"
  fi
done
