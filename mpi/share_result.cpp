#include "mpi/share_result.h"

#include <stdexcept>

#include "corpus/count_file.h"
#include "mpi/byte_codec.h"

namespace wordtally {

void ShareResult::Append(ShareResult&& next) {
  messages += next.messages;
  report += next.report;
  skipped.insert(skipped.end(), next.skipped.begin(), next.skipped.end());
  bytesSent += next.bytesSent;
  messagesSent += next.messagesSent;
  // Counts of a failed share are incomplete; only the messages of a failed run matter.
  if (!next.failure.empty()) {
    Fail(*this, std::move(next.failure));
  } else if (failure.empty()) {
    MergeCounts(counts, next.counts);
  }
}

void Fail(ShareResult& result, std::string failure) {
  if (result.failure.empty()) result.failure = std::move(failure);
  result.counts = CorpusCounts{};
}

std::string Encode(const ShareResult& result) {
  ByteWriter writer;
  writer.Text(result.failure);
  writer.Text(result.messages);
  writer.Text(result.report);
  writer.Number(result.skipped.size());
  for (const std::string& path : result.skipped) writer.Text(path);
  writer.Number(static_cast<uint64_t>(result.bytesSent));
  writer.Number(static_cast<uint64_t>(result.messagesSent));
  writer.Text(CountFileText(result.counts));
  return writer.Take();
}

ShareResult Decode(std::string_view bytes) {
  ByteReader reader(bytes);
  ShareResult result;
  result.failure = reader.Text();
  result.messages = reader.Text();
  result.report = reader.Text();
  const uint64_t skipped = reader.Number();
  for (uint64_t i = 0; i < skipped; ++i) result.skipped.push_back(reader.Text());
  result.bytesSent = static_cast<int64_t>(reader.Number());
  result.messagesSent = static_cast<int64_t>(reader.Number());
  std::string error;
  if (!ParseCountFileText(reader.Text(), "The counts of a rank", result.counts, error)) {
    throw std::runtime_error(error);
  }
  return result;
}

}  // namespace wordtally
