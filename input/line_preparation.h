#pragma once
// The input side of a counting run's line loop: reads the next line and prepares it for word
// extraction: trimming, the UTF-8 translations, the HTML head and the markup layer.
#include <string>

#include "input/line_reader.h"
#include "input/markup.h"
#include "support/ansi_text.h"

namespace wordtally {

class LinePreparer {
 public:
  // fileName decides the markup kind (an HTML doctype on the first line makes a file HTML too).
  // Docx text is already decoded: it skips the UTF-8 translations.
  LinePreparer(std::string fileName, bool isUtf8, bool inputIsDocx);

  // The next line of reader, trimmed, translated when the input is UTF-8 and stripped of markup
  // (it may come back empty); false at the end of the input.
  bool NextLine(LineReader& reader, AnsiString& line);

  // The UTF-8 decision, which a charset declaration in an HTML head switches on.
  bool IsUtf8() const { return isUtf8_; }
  MarkupKind Kind() const { return kind_; }

 private:
  std::string fileName_;
  bool isUtf8_;
  bool inputIsDocx_;
  bool firstLine_ = true;
  bool headSkipped_ = false;
  MarkupKind kind_ = MarkupKind::None;
  MarkupFilter filter_{MarkupKind::None};
};

}  // namespace wordtally
