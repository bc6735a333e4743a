#pragma once
// The other ranks of an MPI job as helpers of rank 0's count of one large file: rank 0 hands each
// a part of the file and takes the counted parts back, in order (see engine/part_counting.h).
#include <mpi.h>

#include <cstdint>
#include <vector>

#include "engine/part_counting.h"

namespace wordtally {

class RankHelpers final : public PartHelpers {
 public:
  explicit RankHelpers(MPI_Comm comm);

  int Count() const override { return ranks_ - 1; }
  void Hand(const EngineContext& run, const std::vector<FilePiece>& parts,
            const PreparerDecisions& entry) override;
  CountedPart Take(int helper) override;
  // Tells every helper rank that no more parts come: each ends its ServeParts.
  void Release();

  int64_t BytesReceived() const { return bytesReceived_; }
  int64_t PartsReceived() const { return partsReceived_; }

 private:
  MPI_Comm comm_;
  int ranks_ = 1;
  int64_t bytesReceived_ = 0;
  int64_t partsReceived_ = 0;
};

// A helper rank's side: counts each part rank 0 hands it and hands it back, until released. A
// part it cannot count goes back marked incomplete, and rank 0 counts it itself.
void ServeParts(MPI_Comm comm);

}  // namespace wordtally
