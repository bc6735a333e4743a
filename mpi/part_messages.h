#pragma once
// The messages of a large file shared between ranks: rank 0 hands a helper rank a part with what
// counting it needs; the helper hands the counted part back.
#include <optional>
#include <string>
#include <string_view>

#include "engine/engine_context.h"
#include "engine/part_counting.h"

namespace wordtally {

// A part to count, with the run's settings and common words as rank 0 has them at the time
// (the run may have changed them: the UTF-8 decision, a common-words list that failed to load).
struct PartRequest {
  FilePiece part;
  PreparerDecisions entry;
  std::string settingsText;  // FormatSettings
  CommonWordsList commonWords;
  int threads = 0;
  int64_t pieceBytes = 0;
};

std::string EncodePartRequest(const EngineContext& run, const FilePiece& part,
                              const PreparerDecisions& entry);
// nullopt for the empty message that tells a helper that no more parts come.
std::optional<PartRequest> DecodePartRequest(std::string_view bytes);

std::string EncodeCountedPart(const CountedPart& part);
CountedPart DecodeCountedPart(std::string_view bytes);

}  // namespace wordtally
