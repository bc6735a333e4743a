#include "input/line_preparation.h"

#include <utility>

#include "input/decoding.h"

namespace wordtally {

LinePreparer::LinePreparer(std::string fileName, bool isUtf8, bool inputIsDocx)
    : fileName_(std::move(fileName)), isUtf8_(isUtf8), inputIsDocx_(inputIsDocx) {}

bool LinePreparer::NextLine(LineReader& reader, AnsiString& line) {
  std::string_view raw;
  if (!reader.NextLine(raw)) return false;
  line.assign(raw);
  if (firstLine_) {
    firstLine_ = false;
    kind_ = DetectMarkupKind(fileName_, line);
    filter_ = MarkupFilter(kind_);
  }
  TrimControlChars(line);
  // The head is read raw: a charset declaration there decides how the rest is translated.
  if (kind_ == MarkupKind::Html && !headSkipped_ && !filter_.InsideMarkup() &&
      OpensHtmlHead(line)) {
    headSkipped_ = true;
    line = SkipHtmlHead(std::move(line), reader, isUtf8_);
  }
  if (!line.empty() && isUtf8_ && !inputIsDocx_) {
    Utf8ToAnsiInPlace(line);
    ReplaceUtf8Punctuation(line);
  }
  if (kind_ != MarkupKind::None) filter_.FilterLine(line);
  return true;
}

}  // namespace wordtally
