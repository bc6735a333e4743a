#pragma once
// The markup layer: recognises HTML, XML and PHP input and strips a line of everything that is
// not running text (tags, script/style/noscript sections, comments, CDATA sections, PHP code),
// decoding character references on the way (all of HTML's names; XML's five in XML files).
// State carries from line to line, so every construct may span lines; an unterminated one
// simply swallows the rest of the input.
#include <cstddef>
#include <string>
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

enum class MarkupKind { None, Html, Xml, Php };

// By extension: "htm", "html", "shtm", "shtml", "xhtm", "xhtml" are HTML, "xml" XML, "php" PHP.
MarkupKind MarkupKindOfFile(const std::string& fileName);
// A line holding "<!DOCTYPE" and "HTML" (in any letter case) marks an HTML file.
bool IsHtmlDoctypeLine(std::string_view line);
// The extension's kind, else HTML when firstLine is an HTML doctype line.
MarkupKind DetectMarkupKind(const std::string& fileName, std::string_view firstLine);
// True when line holds an HTML "<head>" start tag (not "<header>").
bool OpensHtmlHead(std::string_view line);

class MarkupFilter {
 public:
  explicit MarkupFilter(MarkupKind kind) : kind_(kind) {}

  // Replaces each tag, comment, CDATA section, script/style/noscript section and (PHP) code
  // block by one blank, so that the words on either side stay apart, and decodes the character
  // references in the text between. A line with neither "<" nor "&" outside any construct is
  // left untouched.
  void FilterLine(AnsiString& line);

  // True while a construct begun on an earlier line is still open.
  bool InsideMarkup() const { return state_ != State::Text; }

 private:
  enum class State { Text, Tag, Comment, CData, Code, RawText };
  static constexpr std::size_t kMaxNameLength = 16;

  std::size_t StartConstruct(std::string_view line, std::size_t at);
  std::size_t StepTag(std::string_view line, std::size_t at);
  std::size_t SkipUntil(std::string_view line, std::size_t at, std::string_view terminator);
  std::size_t SkipRawText(std::string_view line, std::size_t at);
  void BeginTag(bool closing);
  void EndTag();

  MarkupKind kind_;
  State state_ = State::Text;
  // The tag being read.
  std::string tagName_;
  bool readingName_ = false;
  bool closingTag_ = false;
  bool afterEquals_ = false;
  bool slashBeforeEnd_ = false;
  char quote_ = 0;
  // The element whose raw contents are being skipped ("script", "style", "noscript").
  std::string rawElement_;
  AnsiString scratch_;
};

}  // namespace wordtally
