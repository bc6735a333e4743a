#!/usr/bin/env bash
# wordtally-mpi on 1, 2 and 4 ranks of this machine over one large file (about 1.3 GB): the wall
# time, each rank's peak memory and the bytes the other ranks sent back; the outputs compared
# with wordtally's.
#
#   bench/mpi_scale.sh [BUILD_DIR]     (default: build-release, configured and built here)
#
# Each rank counts on THREADS worker threads (default 1, so that ranks stand for cores).
# Environment: KJV_FILE (default ../shared/corpus/kjvbible.txt beside the repository), THREADS,
# SCRATCH (folder for the input, kept; default a temporary folder removed at the end). The input
# is 300 copies of the text.
set -euo pipefail

repo=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${1:-build-release}
[[ $build_dir = /* ]] || build_dir="$repo/$build_dir"
kjv=${KJV_FILE:-"$repo/../shared/corpus/kjvbible.txt"}
threads=${THREADS:-1}
fail() { echo "mpi_scale.sh: $*" >&2; exit 1; }
[[ -r $kjv ]] || fail "cannot read the source text $kjv (set KJV_FILE)"
[[ -x /usr/bin/time ]] || fail "/usr/bin/time is needed (package 'time')"

cmake -S "$repo" -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DWORDTALLY_GUI=OFF \
  -DWORDTALLY_TESTS=OFF -DWORDTALLY_MPI=ON > /dev/null
cmake --build "$build_dir" --target wordtally wordtally-mpi > /dev/null

if [[ -n ${SCRATCH:-} ]]; then
  scratch=$SCRATCH
  mkdir -p "$scratch"
else
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
fi
input="$scratch/large.txt"
if [[ ! -s $input ]]; then
  for ((i = 0; i < 300; i++)); do cat "$kjv"; done > "$input"
fi
# Root in a container, more ranks than cores, shared memory only.
export OMPI_ALLOW_RUN_AS_ROOT=1 OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1
export OMPI_MCA_rmaps_base_oversubscribe=1 OMPI_MCA_btl=self,vader
export OMPI_MCA_btl_vader_single_copy_mechanism=none

options=(--order frequency --threads "$threads")
"$build_dir/bin/wordtally" "${options[@]}" --output "$scratch/single.txt" "$input" > /dev/null
printf '%-6s %9s  %s\n' ranks seconds "peak memory per rank (MiB); what rank 0 received"
for ranks in 1 2 4; do
  rm -f "$scratch"/rank.*
  start=$(date +%s.%N)
  mpirun -q -np "$ranks" sh -c 'exec /usr/bin/time -f %M -o "$0.$OMPI_COMM_WORLD_RANK" "$@"' \
    "$scratch/rank" "$build_dir/bin/wordtally-mpi" --verbose "${options[@]}" \
    --output "$scratch/ranks.txt" "$input" > /dev/null 2> "$scratch/verbose"
  end=$(date +%s.%N)
  peaks=""
  for ((r = 0; r < ranks; r++)); do
    peaks+=" $(($(cat "$scratch/rank.$r") / 1024))"
  done
  received=$(grep -o 'parts counted by other ranks: [0-9,]*, [0-9,]* bytes' "$scratch/verbose")
  printf '%-6s %9.2f  %s; %s\n' "$ranks" "$(echo "$end - $start" | bc)" "${peaks# }" "$received"
  cmp -s "$scratch/single.txt" "$scratch/ranks.txt" || fail "$ranks ranks: output differs"
done
