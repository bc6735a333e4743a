#include "mpi/part_messages.h"

#include "mpi/byte_codec.h"
#include "settings/settings_format.h"

namespace wordtally {
namespace {

void WriteDecisions(ByteWriter& writer, const PreparerDecisions& decisions) {
  writer.Number(decisions.isUtf8);
  writer.Number(decisions.firstLinePending);
  writer.Number(decisions.headSkipped);
  writer.Number(static_cast<uint64_t>(decisions.kind));
}

PreparerDecisions ReadDecisions(ByteReader& reader) {
  PreparerDecisions decisions;
  decisions.isUtf8 = reader.Number() != 0;
  decisions.firstLinePending = reader.Number() != 0;
  decisions.headSkipped = reader.Number() != 0;
  decisions.kind = static_cast<MarkupKind>(reader.Number());
  return decisions;
}

// Signed numbers travel as their two's complement bits.
uint64_t Bits(int64_t value) { return static_cast<uint64_t>(value); }
int64_t Signed(uint64_t bits) { return static_cast<int64_t>(bits); }

}  // namespace

std::string EncodePartRequest(const EngineContext& run, const FilePiece& part,
                              const PreparerDecisions& entry) {
  ByteWriter writer;
  writer.Text(part.path);
  writer.Number(Bits(part.begin));
  writer.Number(Bits(part.end));
  WriteDecisions(writer, entry);
  writer.Text(FormatSettings(run.settings));
  writer.Text(run.commonWords.strCommonWordsFile);
  writer.Number(run.commonWords.blnCommonWordsLoaded);
  writer.Number(run.commonWords.words.size());
  for (const AnsiString& word : run.commonWords.words) writer.Text(word);
  writer.Number(Bits(run.threads));
  writer.Number(Bits(run.pieceBytes));
  return writer.Take();
}

std::optional<PartRequest> DecodePartRequest(std::string_view bytes) {
  if (bytes.empty()) return std::nullopt;
  ByteReader reader(bytes);
  PartRequest request;
  request.part.path = reader.Text();
  request.part.begin = Signed(reader.Number());
  request.part.end = Signed(reader.Number());
  request.entry = ReadDecisions(reader);
  request.settingsText = reader.Text();
  request.commonWords.strCommonWordsFile = reader.Text();
  request.commonWords.blnCommonWordsLoaded = reader.Number() != 0;
  request.commonWords.words.resize(reader.Number());
  for (AnsiString& word : request.commonWords.words) word = reader.Text();
  request.threads = static_cast<int>(Signed(reader.Number()));
  request.pieceBytes = Signed(reader.Number());
  return request;
}

std::string EncodeCountedPart(const CountedPart& part) {
  ByteWriter writer;
  WriteDecisions(writer, part.entry);
  writer.Number(part.exit.has_value());
  if (part.exit) WriteDecisions(writer, *part.exit);
  writer.Number(Bits(part.exitComment.intWithinComment));
  writer.Number(part.exitComment.startMarkerPending);
  writer.Number(part.exitComment.lineGoesOn);
  writer.Number(part.words.size());
  for (const auto& [word, frequency] : part.words) {
    writer.Text(word);
    writer.Number(Bits(frequency));
  }
  writer.Number(Bits(part.occurrences));
  writer.Number(Bits(part.wordsIgnored));
  writer.Number(Bits(part.utf8SwitchAt));
  writer.Number(part.complete);
  return writer.Take();
}

CountedPart DecodeCountedPart(std::string_view bytes) {
  ByteReader reader(bytes);
  CountedPart part;
  part.entry = ReadDecisions(reader);
  if (reader.Number() != 0) part.exit = ReadDecisions(reader);
  part.exitComment.intWithinComment = static_cast<int16_t>(Signed(reader.Number()));
  part.exitComment.startMarkerPending = reader.Number() != 0;
  part.exitComment.lineGoesOn = reader.Number() != 0;
  part.words.resize(reader.Number());
  for (auto& [word, frequency] : part.words) {
    word = reader.Text();
    frequency = static_cast<int32_t>(Signed(reader.Number()));
  }
  part.occurrences = static_cast<int32_t>(Signed(reader.Number()));
  part.wordsIgnored = static_cast<int32_t>(Signed(reader.Number()));
  part.utf8SwitchAt = static_cast<int32_t>(Signed(reader.Number()));
  part.complete = reader.Number() != 0;
  return part;
}

}  // namespace wordtally
