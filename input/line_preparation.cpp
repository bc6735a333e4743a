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

bool LinePreparer::NextLine(LineReader& reader, std::string_view& line) {
  std::string_view raw;
  if (!reader.NextLine(raw)) return false;
  if (!insideHead_) {
    if (firstLine_) TakeFirstLine(raw);
    raw = TrimControlChars(raw);
    // Plain text that needs no translation is as the reader holds it.
    if (kind_ == MarkupKind::None && (!isUtf8_ || inputIsDocx_)) {
      line = raw;
      return true;
    }
  }
  changed_.assign(raw);
  if (insideHead_) {
    // The head began before this piece of the input: its lines are read raw, as in the head.
    changed_ = SkipHtmlHead(std::move(changed_), reader, isUtf8_, insideHead_);
  } else if (kind_ == MarkupKind::Html && !headSkipped_ && !filter_.InsideMarkup() &&
             OpensHtmlHead(changed_)) {
    // The head is read raw: a charset declaration there decides how the rest is translated.
    headSkipped_ = true;
    changed_ = SkipHtmlHead(std::move(changed_), reader, isUtf8_, insideHead_);
  }
  if (!changed_.empty() && isUtf8_ && !inputIsDocx_) {
    Utf8ToAnsiInPlace(changed_);
    ReplaceUtf8Punctuation(changed_);
  }
  if (kind_ != MarkupKind::None) filter_.FilterLine(changed_);
  line = changed_;
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
