#include "mpi/rank_helpers.h"

#include <exception>
#include <string>

#include "analysis/quiet_host.h"
#include "engine/file_counting.h"
#include "mpi/byte_messages.h"
#include "mpi/part_messages.h"
#include "settings/settings_format.h"

namespace wordtally {
namespace {

constexpr int kLeader = 0;

CountedPart CountRequest(const PartRequest& request) {
  CountingSettings settings;
  QuietHost host;
  if (ParseSettings(request.settingsText, settings).verdict != SettingsVerdict::Accepted) {
    return {};
  }
  txbWordsToIgnore_LostFocus(settings, host);
  EngineContext run(host, settings);
  run.commonWords = request.commonWords;
  run.threads = request.threads;
  run.pieceBytes = request.pieceBytes;
  return CountFilePart(run, request.part, request.entry);
}

}  // namespace

RankHelpers::RankHelpers(MPI_Comm comm) : comm_(comm) { MPI_Comm_size(comm, &ranks_); }

void RankHelpers::Hand(const EngineContext& run, const std::vector<FilePiece>& parts,
                       const PreparerDecisions& entry) {
  for (size_t i = 0; i < parts.size(); ++i) {
    SendBytes(EncodePartRequest(run, parts[i], entry), static_cast<int>(i) + 1, comm_);
  }
}

CountedPart RankHelpers::Take(int helper) {
  const std::string bytes = ReceiveBytes(helper + 1, comm_);
  bytesReceived_ += static_cast<int64_t>(bytes.size());
  ++partsReceived_;
  try {
    return DecodeCountedPart(bytes);
  } catch (const std::exception&) {
    return {};  // a damaged message: the part is read again here
  }
}

void RankHelpers::Release() {
  for (int rank = 1; rank < ranks_; ++rank) SendBytes({}, rank, comm_);
}

void ServeParts(MPI_Comm comm) {
  while (true) {
    const std::optional<PartRequest> request = DecodePartRequest(ReceiveBytes(kLeader, comm));
    if (!request) return;
    CountedPart counted;
    try {
      counted = CountRequest(*request);
    } catch (const std::exception&) {
      counted = {};  // incomplete: rank 0 reads the part itself
    }
    SendBytes(EncodeCountedPart(counted), kLeader, comm);
  }
}

}  // namespace wordtally
