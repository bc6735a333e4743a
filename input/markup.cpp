#include "input/markup.h"

#include <algorithm>

#include "input/character_entities.h"
#include "input/text_search.h"
#include "support/file_utils.h"

namespace wordtally {

namespace {

constexpr std::size_t kMaxEntityLength = 12;  // "&#x10FFFF;" and the longest named entities

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsAsciiDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
bool IsTagNameChar(char c) {
  return IsAsciiLetter(c) || IsAsciiDigit(c) || c == ':' || c == '-' || c == '_' || c == '.';
}
bool IsEntityBodyChar(char c) { return IsAsciiLetter(c) || IsAsciiDigit(c) || c == '#'; }

int HexDigitValue(char c) {
  if (IsAsciiDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The code point of "&#NNN;" or "&#xHH;", or -1.
long NumericEntityValue(std::string_view entity) {
  if (entity.size() < 4 || entity[1] != '#') return -1;
  std::string_view digits = entity.substr(2, entity.size() - 3);
  int base = 10;
  if (digits[0] == 'x' || digits[0] == 'X') {
    base = 16;
    digits.remove_prefix(1);
  }
  if (digits.empty() || digits.size() > 7) return -1;
  long value = 0;
  for (char c : digits) {
    int digit = base == 16 ? HexDigitValue(c) : (IsAsciiDigit(c) ? c - '0' : -1);
    if (digit < 0) return -1;
    value = value * base + digit;
  }
  return value;
}

// The code-page byte of a code point, or -1. References to 128-159 are read as the code page's
// own characters there, as browsers do; control characters become a blank.
int CodePageByteOf(long codePoint) {
  if (codePoint < 32) return ' ';
  if (codePoint < 160) return static_cast<int>(codePoint);
  for (int byte = 128; byte < 256; ++byte) {
    if (AnsiToUnicode(static_cast<unsigned char>(byte)) == codePoint) return byte;
  }
  return -1;
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

std::size_t DecodeEntityAt(std::string_view text, std::size_t at, AnsiString& out) {
  if (at >= text.size() || text[at] != '&') return 0;
  std::size_t end = at + 1;
  while (end < text.size() && end - at < kMaxEntityLength && IsEntityBodyChar(text[end])) ++end;
  if (end >= text.size() || text[end] != ';' || end == at + 1) return 0;
  std::string_view entity = text.substr(at, end - at + 1);
  AnsiString named(entity);
  ReplaceCharacterEntities(named);
  if (named != entity) {
    out += named;
    return entity.size();
  }
  int byte = -1;
  if (long codePoint = NumericEntityValue(entity); codePoint >= 0) byte = CodePageByteOf(codePoint);
  if (byte < 0) return 0;
  out += static_cast<char>(byte);
  return entity.size();
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

// At an "&" or "<" of running text: decodes an entity or enters the construct that begins there.
std::size_t MarkupFilter::StartConstruct(std::string_view line, std::size_t at) {
  if (line[at] == '&') {
    std::size_t used = DecodeEntityAt(line, at, scratch_);
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
