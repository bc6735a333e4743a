#include "mpi/reduction.h"

#include <cstdint>
#include <exception>
#include <string>

#include "mpi/byte_messages.h"

namespace wordtally {
namespace {

void ReceiveInto(ShareResult& result, int from, MPI_Comm comm) {
  const std::string bytes = ReceiveBytes(from, comm);
  try {
    ShareResult next = Decode(bytes);
    next.bytesSent += static_cast<int64_t>(bytes.size() + sizeof(uint64_t));  // with its length
    next.messagesSent += 1;
    result.Append(std::move(next));
  } catch (const std::exception& e) {  // a sum that overflows, or a damaged message
    Fail(result, "Merging the counts of rank " + std::to_string(from) + " failed: " + e.what());
  }
}

}  // namespace

ShareResult ReduceShares(ShareResult own, MPI_Comm comm) {
  int rank = 0, ranks = 1;
  MPI_Comm_rank(comm, &rank);
  MPI_Comm_size(comm, &ranks);
  for (int step = 1; step < ranks; step <<= 1) {
    if ((rank & step) != 0) {
      SendBytes(Encode(own), rank - step, comm);
      return {};
    }
    if (rank + step < ranks) ReceiveInto(own, rank + step, comm);
  }
  return own;
}

}  // namespace wordtally
