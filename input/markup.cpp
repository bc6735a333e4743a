#include "input/markup.h"

#include <algorithm>

#include "input/character_references.h"
#include "input/text_search.h"
#include "support/file_utils.h"

namespace wordtally {

namespace {

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsAsciiDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
bool IsTagNameChar(char c) {
  return IsAsciiLetter(c) || IsAsciiDigit(c) || c == ':' || c == '-' || c == '_' || c == '.';
}

bool IsRawTextElement(std::string_view name) {
  return name == "script" || name == "style" || name == "noscript";
}

}  // namespace

MarkupKind MarkupKindOfFile(const std::string& fileName) {
  std::string extension = LowerExtension(fileName);
  if (extension == "htm" || extension == "html" || extension == "shtm" || extension == "shtml" ||
      extension == "xhtm" || extension == "xhtml") {
    return MarkupKind::Html;
  }
  if (extension == "xml") return MarkupKind::Xml;
  if (extension == "php") return MarkupKind::Php;
  return MarkupKind::None;
}

bool IsHtmlDoctypeLine(std::string_view line) {
  return FindIgnoringAsciiCase(line, "<!DOCTYPE") != std::string_view::npos &&
         FindIgnoringAsciiCase(line, "HTML") != std::string_view::npos;
}

MarkupKind DetectMarkupKind(const std::string& fileName, std::string_view firstLine) {
  MarkupKind kind = MarkupKindOfFile(fileName);
  if (kind == MarkupKind::None && IsHtmlDoctypeLine(firstLine)) kind = MarkupKind::Html;
  return kind;
}

bool OpensHtmlHead(std::string_view line) {
  constexpr std::string_view kHead = "<head";
  for (std::size_t at = FindIgnoringAsciiCase(line, kHead); at != std::string_view::npos;
       at = FindIgnoringAsciiCase(line, kHead, at + 1)) {
    std::size_t after = at + kHead.size();
    if (after == line.size() || line[after] == '>' || IsBlank(line[after])) return true;
  }
  return false;
}

void MarkupFilter::FilterLine(AnsiString& line) {
  if (state_ == State::Text && line.find_first_of("<&") == AnsiString::npos) return;
  scratch_.clear();
  std::string_view text(line);
  std::size_t at = 0;
  while (at < text.size()) {
    switch (state_) {
      case State::Text: {
        std::size_t stop = text.find_first_of("<&", at);
        if (stop == std::string_view::npos) stop = text.size();
        scratch_.append(text.substr(at, stop - at));
        at = stop;
        if (at < text.size()) at = StartConstruct(text, at);
        break;
      }
      case State::Tag: at = StepTag(text, at); break;
      case State::Comment: at = SkipUntil(text, at, "-->"); break;
      case State::CData: at = SkipUntil(text, at, "]]>"); break;
      case State::Code: at = SkipUntil(text, at, "?>"); break;
      case State::RawText: at = SkipRawText(text, at); break;
    }
  }
  line.swap(scratch_);
}

// At an "&" or "<" of running text: decodes a character reference or enters the construct that
// begins there.
std::size_t MarkupFilter::StartConstruct(std::string_view line, std::size_t at) {
  if (line[at] == '&') {
    const ReferenceNames names =
        kind_ == MarkupKind::Xml ? ReferenceNames::Xml : ReferenceNames::Html;
    const std::size_t used = DecodeCharacterReferenceAt(line, at, names, scratch_);
    if (used == 0) scratch_ += '&';
    return at + std::max<std::size_t>(used, 1);
  }
  std::string_view rest = line.substr(at);
  State next = State::Text;
  std::size_t opener = 0;
  if (rest.starts_with("<!--")) {
    next = State::Comment;
    opener = 4;
  } else if (StartsWithIgnoringAsciiCase(rest, "<![CDATA[")) {
    next = State::CData;
    opener = 9;
  } else if (kind_ == MarkupKind::Php && rest.starts_with("<?")) {
    next = State::Code;
    opener = 2;
  }
  if (next != State::Text) {
    state_ = next;
    scratch_ += ' ';
    return at + opener;
  }
  char second = rest.size() > 1 ? rest[1] : '\0';
  if (IsAsciiLetter(second) || second == '/' || second == '!' || second == '?') {
    scratch_ += ' ';
    BeginTag(second == '/');
    return at + (second == '/' ? 2 : 1);
  }
  scratch_ += '<';  // a "<" that opens nothing, as in "a < b"
  return at + 1;
}

void MarkupFilter::BeginTag(bool closing) {
  state_ = State::Tag;
  tagName_.clear();
  readingName_ = true;
  closingTag_ = closing;
  afterEquals_ = false;
  slashBeforeEnd_ = false;
  quote_ = 0;
}

// A quote opens a value only right after "=", so a stray apostrophe in a tag cannot swallow the
// text that follows; ">" inside a quoted value does not end the tag.
std::size_t MarkupFilter::StepTag(std::string_view line, std::size_t at) {
  for (; at < line.size(); ++at) {
    char c = line[at];
    if (quote_ != 0) {
      if (c == quote_) quote_ = 0;
      continue;
    }
    if (readingName_) {
      if (IsTagNameChar(c)) {
        if (tagName_.size() < kMaxNameLength) tagName_ += static_cast<char>(LowerAnsiChar(c));
        continue;
      }
      readingName_ = false;
    }
    if (c == '>') {
      EndTag();
      return at + 1;
    }
    if ((c == '"' || c == '\'') && afterEquals_) {
      quote_ = c;
      afterEquals_ = false;
      continue;
    }
    if (IsBlank(c)) continue;
    afterEquals_ = c == '=';
    slashBeforeEnd_ = c == '/';
  }
  return at;
}

void MarkupFilter::EndTag() {
  state_ = State::Text;
  if (kind_ == MarkupKind::Xml || closingTag_ || slashBeforeEnd_ || !IsRawTextElement(tagName_)) {
    return;
  }
  rawElement_ = "</" + tagName_;
  state_ = State::RawText;
}

std::size_t MarkupFilter::SkipUntil(std::string_view line, std::size_t at,
                                    std::string_view terminator) {
  std::size_t found = line.find(terminator, at);
  if (found == std::string_view::npos) return line.size();
  state_ = State::Text;
  return found + terminator.size();
}

// Inside script, style or noscript only the element's own end tag counts.
std::size_t MarkupFilter::SkipRawText(std::string_view line, std::size_t at) {
  std::size_t found = FindIgnoringAsciiCase(line, rawElement_, at);
  if (found == std::string_view::npos) return line.size();
  scratch_ += ' ';
  BeginTag(true);
  return found + 2;
}

}  // namespace wordtally
