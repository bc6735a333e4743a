#include "input/character_references.h"

#include <algorithm>
#include <array>
#include <optional>

#include "input/html_entities.h"

namespace wordtally {

namespace {

// "CounterClockwiseContourIntegral", the longest name; numbers may carry leading zeros up to it.
constexpr std::size_t kLongestBody = 31;
constexpr char32_t kSoftHyphen = 0xAD;
constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr char32_t kReplacementCharacter = 0xFFFD;

// Sorted by name, as the HTML table.
constexpr std::array<NamedCharacterReference, 5> kXmlReferences = {{
    {"amp", '&'}, {"apos", '\''}, {"gt", '>'}, {"lt", '<'}, {"quot", '"'}}};

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsAsciiDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBodyChar(char c) { return IsAsciiLetter(c) || IsAsciiDigit(c) || c == '#'; }

int DigitValue(char c, int base) {
  int value = base;
  if (IsAsciiDigit(c)) value = c - '0';
  if (base == 16 && c >= 'a' && c <= 'f') value = c - 'a' + 10;
  if (base == 16 && c >= 'A' && c <= 'F') value = c - 'A' + 10;
  return value < base ? value : -1;
}

// The character of "NNN" or "xHH" (the text after "&#"); nothing when it is not a number. A
// number beyond Unicode or a surrogate stands for the replacement character, as in browsers.
std::optional<char32_t> NumericReferenceValue(std::string_view digits) {
  int base = 10;
  if (!digits.empty() && (digits.front() == 'x' || digits.front() == 'X')) {
    base = 16;
    digits.remove_prefix(1);
  }
  if (digits.empty()) return std::nullopt;
  char32_t value = 0;
  for (char c : digits) {
    const int digit = DigitValue(c, base);
    if (digit < 0) return std::nullopt;
    value = std::min<char32_t>(value * base + digit, kLastCodePoint + 1);
  }
  if (value > kLastCodePoint || (value >= 0xD800 && value <= 0xDFFF)) return kReplacementCharacter;
  return value;
}

const NamedCharacterReference* FindNamedReference(std::string_view name, ReferenceNames names) {
  const std::span<const NamedCharacterReference> table =
      names == ReferenceNames::Xml ? std::span<const NamedCharacterReference>(kXmlReferences)
                                   : HtmlNamedReferences();
  const auto found = std::lower_bound(
      table.begin(), table.end(), name,
      [](const NamedCharacterReference& entry, std::string_view key) { return entry.name < key; });
  return found != table.end() && found->name == name ? &*found : nullptr;
}

// References to 128-159 are read as the code page's own characters there, as browsers do.
void AppendCharacter(char32_t codePoint, AnsiString& out) {
  if (codePoint == kSoftHyphen) return;
  if (codePoint < 32) {
    out += ' ';
  } else if (codePoint < 160) {
    out += static_cast<char>(codePoint);
  } else {
    out += CodePointToAnsi(codePoint);
  }
}

}  // namespace

std::size_t DecodeCharacterReferenceAt(std::string_view text, std::size_t at,
                                       ReferenceNames names, AnsiString& out) {
  if (at >= text.size() || text[at] != '&') return 0;
  const std::size_t limit = std::min(text.size(), at + 1 + kLongestBody);
  std::size_t end = at + 1;
  while (end < limit && IsBodyChar(text[end])) ++end;
  if (end >= text.size() || text[end] != ';' || end == at + 1) return 0;
  const std::string_view body = text.substr(at + 1, end - at - 1);
  if (body.front() == '#') {
    const std::optional<char32_t> codePoint = NumericReferenceValue(body.substr(1));
    if (!codePoint) return 0;
    AppendCharacter(*codePoint, out);
  } else {
    const NamedCharacterReference* named = FindNamedReference(body, names);
    if (named == nullptr) return 0;
    AppendCharacter(named->first, out);
    if (named->second != 0) AppendCharacter(named->second, out);
  }
  return body.size() + 2;
}

}  // namespace wordtally
