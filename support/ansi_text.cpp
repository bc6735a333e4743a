#include "support/ansi_text.h"

#include <algorithm>
#include <array>

namespace wordtally {
namespace {

// Unicode of the bytes 0x80-0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char16_t, 256> MakeUnicodeTable() {
  std::array<char16_t, 256> table{};
  for (int b = 0; b < 256; ++b) {
    table[b] = (b >= 0x80 && b < 0xA0) ? kHighControls[b - 0x80] : static_cast<char16_t>(b);
  }
  return table;
}
constexpr std::array<char16_t, 256> kUnicode = MakeUnicodeTable();

// A byte's rank is the number of bytes whose code units are smaller (no two are equal).
constexpr std::array<unsigned char, 256> MakeCodeUnitRanks() {
  std::array<unsigned char, 256> ranks{};
  for (int b = 0; b < 256; ++b) {
    int smaller = 0;
    for (char16_t unit : kUnicode) smaller += unit < kUnicode[b] ? 1 : 0;
    ranks[b] = static_cast<unsigned char>(smaller);
  }
  return ranks;
}
constexpr std::array<unsigned char, 256> kCodeUnitRanks = MakeCodeUnitRanks();

constexpr const detail::CaseTables& kCase = detail::kAnsiCase;

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Decodes one UTF-8 sequence at text[i]; advances i. Malformed input gives U+FFFD.
char32_t NextCodePoint(std::string_view text, size_t& i) {
  const auto lead = static_cast<unsigned char>(text[i++]);
  if (lead < 0x80) return lead;
  int extra = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : -1;
  if (extra < 0 || lead >= 0xF5) return 0xFFFD;
  char32_t cp = lead & (0x3F >> extra);
  for (int k = 0; k < extra; ++k) {
    if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0xFFFD;
    cp = (cp << 6) | (static_cast<unsigned char>(text[i++]) & 0x3F);
  }
  return cp;
}

}  // namespace

char16_t AnsiToUnicode(unsigned char byte) { return kUnicode[byte]; }

unsigned char CodeUnitRank(unsigned char byte) { return kCodeUnitRanks[byte]; }

char CodePointToAnsi(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (int i = 0; i < 32; ++i) {
    if (kHighControls[i] == cp) return static_cast<char>(0x80 + i);
  }
  return '?';
}

std::u16string AnsiToUtf16(std::string_view text) {
  std::u16string out(text.size(), u'\0');
  std::transform(text.begin(), text.end(), out.begin(),
                 [](char c) { return kUnicode[static_cast<unsigned char>(c)]; });
  return out;
}

std::string AnsiToUtf8(std::string_view text) {
  std::string out;
  AppendAnsiAsUtf8(out, text);
  return out;
}

void AppendAnsiAsUtf8(std::string& out, std::string_view text) {
  out.reserve(out.size() + text.size());
  for (char c : text) AppendUtf8(out, kUnicode[static_cast<unsigned char>(c)]);
}

AnsiString Utf16ToAnsi(std::u16string_view text) {
  AnsiString out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool highSurrogate = unit >= 0xD800 && unit < 0xDC00;
    if (highSurrogate && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      ++i;  // a character beyond the basic plane is one '?'
    }
    out += CodePointToAnsi(unit);
  }
  return out;
}

AnsiString Utf8ToAnsiText(std::string_view text) {
  AnsiString out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) out += CodePointToAnsi(NextCodePoint(text, i));
  return out;
}

void LowerAnsiInPlace(char* text, size_t count) {
  for (size_t i = 0; i < count; ++i) {
    text[i] = static_cast<char>(kCase.lower[static_cast<unsigned char>(text[i])]);
  }
}

void LowerAnsiInPlace(AnsiString& text) { LowerAnsiInPlace(text.data(), text.size()); }

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return kCase.lower[static_cast<unsigned char>(x)] == kCase.lower[static_cast<unsigned char>(y)];
         });
}

AnsiString LowerAnsi(std::string_view text) {
  AnsiString out(text);
  LowerAnsiInPlace(out);
  return out;
}

AnsiString UpperAnsi(std::string_view text) {
  AnsiString out(text);
  for (char& c : out) c = static_cast<char>(kCase.upper[static_cast<unsigned char>(c)]);
  return out;
}

int CompareCodeUnits(std::string_view a, std::string_view b) {
  const size_t n = std::min(a.size(), b.size());
  const auto [pa, pb] = std::mismatch(a.begin(), a.begin() + n, b.begin());
  if (pa == a.begin() + n) {
    return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
  }
  return static_cast<int>(kUnicode[static_cast<unsigned char>(*pa)]) -
         static_cast<int>(kUnicode[static_cast<unsigned char>(*pb)]);
}

}  // namespace wordtally
