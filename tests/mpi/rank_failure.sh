#!/usr/bin/env bash
# A rank that cannot count (its command line names a common-words file that its working folder
# lacks) ends the run: rank 0 reports it, lists nothing and exits with status 1, without waiting.
# Usage: rank_failure.sh WORDTALLY_MPI MPIEXEC DATA_FOLDER
set -u
wordtally_mpi=$1 mpiexec=$2 data=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" && echo "the and" >words.txt
# shellcheck disable=SC2016  # expanded by the shell of each rank
"$mpiexec" -q -np 3 sh -c 'if [ "$OMPI_COMM_WORLD_RANK" = 2 ]; then cd /; fi; exec "$0" "$@"' \
  "$wordtally_mpi" --common-words words.txt "$data/cli/mixed_ansi_crlf.txt" \
  "$data/cli/page_utf8.html" "$data/pl_pan_tadeusz_invocation_utf8_lf.txt" >out 2>err
status=$?
cat err
[ "$status" = 1 ] && [ ! -s out ] &&
  [ "$(grep -c "The command line was refused on rank 2 " err)" = 1 ]
