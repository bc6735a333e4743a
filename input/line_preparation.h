#pragma once
// The input side of a counting run's line loop: reads the next line and prepares it for word
// extraction: trimming, the UTF-8 translations, the HTML head and the markup layer.
#include <string>
#include <string_view>

#include "input/line_reader.h"
#include "input/markup.h"
#include "support/ansi_text.h"

namespace wordtally {

// What a preparer outside every construct that spans lines has decided so far: all there is of
// its state, so that another process can take up a file where this one leaves it.
struct PreparerDecisions {
  bool isUtf8 = false;
  bool firstLinePending = true;
  bool headSkipped = false;
  MarkupKind kind = MarkupKind::None;
};

class LinePreparer {
 public:
  // fileName decides the markup kind (an HTML doctype on the first line makes a file HTML too).
  // Docx text is already decoded: it skips the UTF-8 translations.
  LinePreparer(std::string fileName, bool isUtf8, bool inputIsDocx);
  // A text file's preparer at rest with these decisions.
  LinePreparer(std::string fileName, const PreparerDecisions& decisions);

  // The next line of reader, trimmed, translated when the input is UTF-8 and stripped of markup
  // (it may come back empty); false at the end of the input. The view is valid until the next
  // call: a line that needs no more than trimming is not copied, it is seen in the reader.
  bool NextLine(LineReader& reader, std::string_view& line);

  // The UTF-8 decision, which a charset declaration in an HTML head switches on.
  bool IsUtf8() const { return isUtf8_; }
  MarkupKind Kind() const { return kind_; }

  // A copy taken to begin outside every construct that spans lines (markup, the HTML head), the
  // state a piece of the input is assumed to begin in while the pieces before it are counted.
  LinePreparer Resting() const;
  // True when the next line is prepared alike by both: same decisions, and both outside every
  // construct that spans lines (a filter inside markup counts as different).
  bool SameStateAs(const LinePreparer& other) const;
  // Outside every construct that spans lines: Decisions() then tell the whole state.
  bool AtRest() const { return !insideHead_ && !filter_.InsideMarkup(); }
  PreparerDecisions Decisions() const { return {isUtf8_, firstLine_, headSkipped_, kind_}; }

 private:
  // Decides the markup kind from the input's first line (raw).
  void TakeFirstLine(std::string_view firstLine);

  std::string fileName_;
  bool isUtf8_;
  bool inputIsDocx_;
  bool firstLine_ = true;
  bool headSkipped_ = false;
  bool insideHead_ = false;  // the input (a piece of a file) ended inside the HTML head
  MarkupKind kind_ = MarkupKind::None;
  MarkupFilter filter_{MarkupKind::None};
  AnsiString changed_;  // the line, when it had to be changed
};

}  // namespace wordtally
