#pragma once
// Windows-1252 ("ANSI") text: the engine's one text representation, one character per byte,
// and the conversions to the Unicode forms used at the edges (widgets, terminal, docx, clipboard).
#include <array>
#include <string>
#include <string_view>

namespace wordtally {

using AnsiString = std::string;

inline constexpr std::string_view kCrLf = "\r\n";

// The UTF-16 code unit of a Windows-1252 byte (the five unassigned bytes map to U+0081 etc.).
char16_t AnsiToUnicode(unsigned char byte);
// The code-page byte of a Unicode code point; '?' (never part of a word) when there is none.
char CodePointToAnsi(char32_t codePoint);
std::u16string AnsiToUtf16(std::string_view text);
std::string AnsiToUtf8(std::string_view text);
void AppendAnsiAsUtf8(std::string& out, std::string_view text);
// A character outside the code page becomes '?'.
AnsiString Utf16ToAnsi(std::u16string_view text);
// Decodes well-formed UTF-8; a malformed byte or a character outside the code page becomes '?'.
AnsiString Utf8ToAnsiText(std::string_view text);

namespace detail {

struct CaseTables {
  std::array<unsigned char, 256> lower{};
  std::array<unsigned char, 256> upper{};
};

constexpr CaseTables MakeCaseTables() {
  CaseTables t;
  for (int b = 0; b < 256; ++b) {
    t.lower[b] = t.upper[b] = static_cast<unsigned char>(b);
  }
  auto pair = [&t](int capital, int small) {
    t.lower[capital] = static_cast<unsigned char>(small);
    t.upper[small] = static_cast<unsigned char>(capital);
  };
  for (int b = 'A'; b <= 'Z'; ++b) pair(b, b + 32);
  pair(0x8A, 0x9A);  // Š š
  pair(0x8C, 0x9C);  // Œ œ
  pair(0x8E, 0x9E);  // Ž ž
  pair(0x9F, 0xFF);  // Ÿ ÿ
  for (int b = 0xC0; b <= 0xDE; ++b) {
    if (b != 0xD7) pair(b, b + 32);  // À-Þ, but not the multiplication sign
  }
  return t;
}

inline constexpr CaseTables kAnsiCase = MakeCaseTables();

}  // namespace detail

// The code page's own case mapping over the whole range 0-255: A-Z and the accented capitals
// (Š Œ Ž Ÿ À-Þ except ×) to their small letters, and back. Inline: the per-word paths use them.
inline unsigned char LowerAnsiChar(unsigned char c) { return detail::kAnsiCase.lower[c]; }
inline unsigned char UpperAnsiChar(unsigned char c) { return detail::kAnsiCase.upper[c]; }
AnsiString LowerAnsi(std::string_view text);
AnsiString UpperAnsi(std::string_view text);
void LowerAnsiInPlace(AnsiString& text);
void LowerAnsiInPlace(char* text, size_t count);
// The text without the blanks at either end. Always inlined: words, which never hold blanks,
// pass through it on the per-word path.
[[gnu::always_inline]] inline std::string_view TrimBlanks(std::string_view text) {
  if (text.empty() || (text.front() != ' ' && text.back() != ' ')) return text;
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// True when a and b are equal once both are lower-cased.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Orders two texts as their UTF-16 code units would order (so "Š", U+0160, sorts after "é",
// U+00E9, although its byte is smaller). Returns <0, 0 or >0.
int CompareCodeUnits(std::string_view a, std::string_view b);
inline bool LessCodeUnits(std::string_view a, std::string_view b) { return CompareCodeUnits(a, b) < 0; }
// The place of a byte's character in that order, 0 to 255: texts compare as CompareCodeUnits
// compares them when each byte is replaced by its rank and the ranks compared as unsigned bytes.
unsigned char CodeUnitRank(unsigned char byte);

}  // namespace wordtally
