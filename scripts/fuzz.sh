#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang into build-sanitize/ (the build of
# scripts/sanitize.sh) and runs each for SECONDS (default 60), one after another, starting from
# its seeds: files of tests/data/, fuzz/seeds/ and the shared corpus (../shared/corpus beside the
# repository). Fails when a target finds a fault; its crashing input is left in
# build-sanitize/findings/TARGET/.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
seconds="${1:-60}"
build="$root/build-sanitize"
corpus="$root/../shared/corpus"

bash "$root/scripts/install-deps.sh"
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DWORDTALLY_SANITIZE=ON -DWORDTALLY_FUZZ=ON -DWORDTALLY_GUI=OFF \
  -DWORDTALLY_MPI=OFF -DWORDTALLY_BENCH=OFF "${launcher[@]}" >/dev/null
targets=(line_preparation markup docx word_count settings)
cmake --build "$build" -j"$(nproc)" --target "${targets[@]/%/_fuzz}"

# Seeds: each target's own files, copied so that the fuzzer never writes into the sources. A
# missing shared corpus leaves the repository's own seeds.
seed_files() {
  case "$1" in
    line_preparation | word_count)
      ls "$root"/tests/data/cli/*.txt "$root"/tests/data/cli/*.html \
        "$corpus"/text/* "$corpus"/html/* 2>/dev/null || true ;;
    markup) ls "$root"/tests/data/cli/*.html "$corpus"/html/* 2>/dev/null || true ;;
    docx) ls "$root"/tests/data/*.docx "$corpus"/docx/*.docx 2>/dev/null || true ;;
    settings) ls "$root"/fuzz/seeds/settings/* ;;
  esac
}

status=0
for target in "${targets[@]}"; do
  seeds="$build/seeds/$target" work="$build/corpus/$target" findings="$build/findings/$target"
  rm -rf "$seeds" && mkdir -p "$seeds" "$work" "$findings"
  seed_files "$target" | while read -r file; do cp "$file" "$seeds/"; done
  # The document parts of the docx seeds, so that the XML is explored from real documents too.
  if [ "$target" = docx ]; then
    for file in "$seeds"/*.docx; do
      ziptool "$file" cat word/document.xml >"${file%.docx}.xml" 2>/dev/null || true
    done
  fi
  echo "== $target: ${seconds}s"
  log="$build/$target.log"
  # Texts are cut to 8 KB, which keeps the runs fast; docx seeds are whole archives up to 25 KB.
  max_len=8192
  [ "$target" = docx ] && max_len=65536
  if "$build/bin/${target}_fuzz" "$work" "$seeds" -max_total_time="$seconds" -max_len="$max_len" \
      -timeout=30 -rss_limit_mb=2048 -artifact_prefix="$findings/" -print_final_stats=1 \
      >"$log" 2>&1; then
    grep -E '^#[0-9]+.*DONE|stat::number_of_executed_units' "$log" | tail -n 2
  else
    status=1
    echo "FAULT found by $target; see $log and $findings/"
    tail -n 40 "$log"
  fi
done
exit "$status"
