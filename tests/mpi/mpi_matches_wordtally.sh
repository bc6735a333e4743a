#!/usr/bin/env bash
# wordtally-mpi on 3 ranks against wordtally on the same inputs and options: the same listing and
# statistics, messages, exit status, output file, corpus table and count file, byte for byte.
# Usage: mpi_matches_wordtally.sh CASE WORDTALLY WORDTALLY_MPI MPIEXEC DATA_FOLDER
set -u
case=$1 wordtally=$2 wordtally_mpi=$3 mpiexec=$4 data=$5
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# large_file PATH: 4.8 MB, over one 4 MiB piece, so that each rank counts a part of it; a comment
# runs from 55% to 80% of it, over the start of the third of three parts, which rank 0 then reads
# again itself. Every one of 17,576 words, 600,000 of the 800,000 outside the comment.
large_file() {
  awk 'BEGIN {
    split("abcdefghijklmnopqrstuvwxyz", letter, "")
    for (i = 0; i < 800000; i++) {
      if (i == 440000) print "/* a comment over a part boundary"
      if (i == 640000) print "*/"
      n = i * 7919 % 17576
      word = "w" letter[n % 26 + 1] "a" letter[int(n / 26) % 26 + 1] letter[int(n / 676) + 1]
      printf "%s%s", word, (i % 8 == 7 ? "\n" : " ")
    }
  }' >"$1"
}

case $case in
  corpus)  # single files, a folder with a subfolder and refused docx files, a page, a docx
    inputs=("$data/pl_pan_tadeusz_invocation_utf8_lf.txt" "$data" "$data/cli/page_utf8.html"
            "$data/en_tika_testWORD.docx") ;;
  count_files)  # count files made by wordtally among the files, read after them as it does
    "$wordtally" --save-counts "$work/cli.counts" "$data/cli" >/dev/null || exit 1
    inputs=("$data/en_gutenberg_news_from_nowhere_ch13.htm" "$work/cli.counts"
            "$data/cli/mixed_ansi_crlf.txt" "$data/pl_pan_tadeusz_invocation_utf8_lf.txt") ;;
  missing_input)  # files that cannot be read, first and last (ranks 0 and 2): each told once
    inputs=("$work/missing1.txt" "$data/cli/mixed_ansi_crlf.txt" "$data/cli/case_lf.txt"
            "$data/cli/page_utf8.html" "$data/pl_pan_tadeusz_invocation_utf8_lf.txt"
            "$work/missing2.txt") ;;
  one_file)  # one large file alone
    large_file "$work/large.txt"
    inputs=("$work/large.txt") ;;
  large_in_corpus)  # a large file among small ones and a missing one: a round of its own
    large_file "$work/large.txt"
    inputs=("$data/cli/mixed_ansi_crlf.txt" "$work/missing.txt" "$work/large.txt"
            "$data/cli/page_utf8.html" "$data/pl_pan_tadeusz_invocation_utf8_lf.txt") ;;
  *) echo "unknown case $case"; exit 2 ;;
esac
# A corpus run also writes the corpus table and the count file.
corpus_outputs() {
  [ "$case" = one_file ] || echo --corpus-table "$work/$1.csv" --save-counts "$work/$1.counts"
}

# run NAME PROGRAM...: the outputs of one run in $work/NAME.*
run() {
  local name=$1
  shift
  # shellcheck disable=SC2046  # the corpus outputs' paths hold no blanks
  "$@" --order frequency --stats --output "$work/$name.txt" $(corpus_outputs "$name") \
    "${inputs[@]}" >"$work/$name.out" 2>"$work/$name.err"
  echo $? >"$work/$name.status"
}
run single "$wordtally"
# -q: no note from mpiexec on standard error when a rank exits with status 1.
run ranks "$mpiexec" -q -np 3 "$wordtally_mpi"

failed=0
for part in status out err txt csv counts; do
  [ -e "$work/single.$part" ] || [ -e "$work/ranks.$part" ] || continue
  if ! cmp -s "$work/single.$part" "$work/ranks.$part"; then
    echo "wordtally-mpi's $part differs from wordtally's:"
    diff "$work/single.$part" "$work/ranks.$part" | head -20
    failed=1
  fi
done
# The comparison is only worth something when wordtally listed words and wrote its files.
if [ "$case" = one_file ]; then
  grep -q "^Number of words in this list: 17,576$" "$work/single.out" &&
    grep -q "^Total number of instances of words: 600,000$" "$work/single.out" || failed=1
else
  grep -q "Files counted:" "$work/single.out" && [ -s "$work/single.csv" ] || failed=1
fi
if [ "$case" = missing_input ]; then
  [ "$(cat "$work/ranks.status")" = 1 ] || { echo "exit status not 1"; failed=1; }
  for missing in missing1 missing2; do
    [ "$(grep -c "^Fatal error: File .*$missing.txt not found." "$work/ranks.err")" = 1 ] ||
      { echo "the refusal of $missing.txt is not told once"; failed=1; }
  done
fi
exit $failed
