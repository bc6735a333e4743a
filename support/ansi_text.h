#pragma once
// Windows-1252 ("ANSI") text: the engine's one text representation, one character per byte,
// and the conversions to the Unicode forms used at the edges (widgets, terminal, docx, clipboard).
#include <string>
#include <string_view>

namespace wordtally {

using AnsiString = std::string;

inline constexpr std::string_view kCrLf = "\r\n";

// The UTF-16 code unit of a Windows-1252 byte (the five unassigned bytes map to U+0081 etc.).
char16_t AnsiToUnicode(unsigned char byte);
std::u16string AnsiToUtf16(std::string_view text);
std::string AnsiToUtf8(std::string_view text);
// A character outside the code page becomes '?'.
AnsiString Utf16ToAnsi(std::u16string_view text);
// Decodes well-formed UTF-8; a malformed byte or a character outside the code page becomes '?'.
AnsiString Utf8ToAnsiText(std::string_view text);

// The code page's own case mapping over the whole range 0-255: A-Z and the accented capitals
// (Š Œ Ž Ÿ À-Þ except ×) to their small letters, and back.
unsigned char LowerAnsiChar(unsigned char c);
unsigned char UpperAnsiChar(unsigned char c);
AnsiString LowerAnsi(std::string_view text);
AnsiString UpperAnsi(std::string_view text);
void LowerAnsiInPlace(AnsiString& text);
void LowerAnsiInPlace(char* text, size_t count);
// The text without the blanks at either end.
inline std::string_view TrimBlanks(std::string_view text) {
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

}  // namespace wordtally
