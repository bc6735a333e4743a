#pragma once
// Merging the results of every rank into rank 0's over MPI messages.
#include <mpi.h>

#include "mpi/share_result.h"

namespace wordtally {

// Merges along a binomial tree: rank r receives, in turn, from r+1, r+2, r+4, ... (while that
// bit of r is clear and the rank exists) the merged results of the ranks that follow its own, so
// the input order is kept; then it sends its result to its parent. Every rank takes part,
// whatever its result, so that a failure cannot leave a rank waiting. On rank 0 returns the
// result of all shares, with the bytes and messages sent; elsewhere an empty result.
ShareResult ReduceShares(ShareResult own, MPI_Comm comm);

}  // namespace wordtally
