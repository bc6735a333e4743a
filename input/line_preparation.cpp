#include "input/line_preparation.h"

#include <utility>

#include "input/decoding.h"

namespace wordtally {

LinePreparer::LinePreparer(std::string fileName, bool isUtf8, bool inputIsDocx)
    : fileName_(std::move(fileName)), isUtf8_(isUtf8), inputIsDocx_(inputIsDocx) {}

LinePreparer::LinePreparer(std::string fileName, const PreparerDecisions& decisions)
    : fileName_(std::move(fileName)),
      isUtf8_(decisions.isUtf8),
      inputIsDocx_(false),
      firstLine_(decisions.firstLinePending),
      headSkipped_(decisions.headSkipped),
      kind_(decisions.kind),
      filter_(decisions.kind) {}

bool LinePreparer::NextLine(LineReader& reader, AnsiString& line) {
  std::string_view raw;
  if (!reader.NextLine(raw)) return false;
  line.assign(raw);
  if (insideHead_) {
    // The head began before this piece of the input: its lines are read raw, as in the head.
    line = SkipHtmlHead(std::move(line), reader, isUtf8_, insideHead_);
  } else {
    if (firstLine_) TakeFirstLine(line);
    TrimControlChars(line);
    // The head is read raw: a charset declaration there decides how the rest is translated.
    if (kind_ == MarkupKind::Html && !headSkipped_ && !filter_.InsideMarkup() &&
        OpensHtmlHead(line)) {
      headSkipped_ = true;
      line = SkipHtmlHead(std::move(line), reader, isUtf8_, insideHead_);
    }
  }
  if (!line.empty() && isUtf8_ && !inputIsDocx_) {
    Utf8ToAnsiInPlace(line);
    ReplaceUtf8Punctuation(line);
  }
  if (kind_ != MarkupKind::None) filter_.FilterLine(line);
  return true;
}

void LinePreparer::TakeFirstLine(std::string_view firstLine) {
  firstLine_ = false;
  kind_ = DetectMarkupKind(fileName_, firstLine);
  filter_ = MarkupFilter(kind_);
}

LinePreparer LinePreparer::Resting() const {
  LinePreparer resting = *this;
  resting.insideHead_ = false;
  resting.filter_ = MarkupFilter(kind_);
  return resting;
}

bool LinePreparer::SameStateAs(const LinePreparer& other) const {
  return isUtf8_ == other.isUtf8_ && firstLine_ == other.firstLine_ &&
         headSkipped_ == other.headSkipped_ && insideHead_ == other.insideHead_ &&
         kind_ == other.kind_ && !filter_.InsideMarkup() && !other.filter_.InsideMarkup();
}

}  // namespace wordtally
