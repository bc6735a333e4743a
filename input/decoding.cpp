#include "input/decoding.h"

#include <array>
#include <cstdint>

#include "input/line_reader.h"
#include "input/text_search.h"

namespace wordtally {

namespace {

constexpr unsigned char kLeadC2 = 0xC2;
constexpr unsigned char kLeadC3 = 0xC3;

bool HasLatinUtf8Lead(std::string_view line) {
  if (!HasHighByte(line)) return false;
  for (unsigned char c : line) {
    if (static_cast<unsigned char>(c - kLeadC2) < 3) return true;
  }
  return false;
}

// Replaces every pair (first, second) of line by replacement (one character or none), in one
// left-to-right pass.
void ReplaceEveryPair(AnsiString& line, char first, char second, std::string_view replacement) {
  std::size_t out = 0;
  for (std::size_t in = 0; in < line.size(); ++in) {
    if (line[in] == first && in + 1 < line.size() && line[in + 1] == second) {
      if (!replacement.empty()) line[out++] = replacement[0];
      ++in;
    } else {
      line[out++] = line[in];
    }
  }
  line.resize(out);
}

// C2 xx: each pair found replaces all pairs with the same second byte across the whole line, so
// that a removal which joins bytes into a new pair is handled exactly as the line's order implies.
void TranslateC2Pairs(AnsiString& line) {
  std::size_t start = 0;
  for (;;) {
    std::size_t found = line.find(static_cast<char>(kLeadC2), start);
    if (found == AnsiString::npos || found + 1 >= line.size()) return;
    auto next = static_cast<unsigned char>(line[found + 1]);
    if (next < 0x80 || next > 0xBF) {
      start = found + 2;
      continue;
    }
    char second = static_cast<char>(next);
    ReplaceEveryPair(line, static_cast<char>(kLeadC2), second,
                     next >= 0xA0 ? std::string_view(&second, 1) : std::string_view());
    start = found + 1;
  }
}

// C3 80..BF is the character 64 higher; the character made is never looked at again.
void TranslateC3Pairs(AnsiString& line) {
  std::size_t out = 0;
  for (std::size_t in = 0; in < line.size(); ++in) {
    auto c = static_cast<unsigned char>(line[in]);
    if (c == kLeadC3 && in + 1 < line.size()) {
      auto next = static_cast<unsigned char>(line[in + 1]);
      if (next >= 0x80 && next <= 0xBF) {
        line[out++] = static_cast<char>(next + 64);
      } else {
        line[out++] = line[in];
        line[out++] = line[in + 1];
      }
      ++in;
    } else {
      line[out++] = line[in];
    }
  }
  line.resize(out);
}

struct PunctuationTable {
  std::array<std::string_view, 256> replacement{};
  std::array<bool, 256> known{};
  constexpr void Set(int from, int to, std::string_view text) {
    for (int x = from; x <= to; ++x) {
      replacement[x] = text;
      known[x] = true;
    }
  }
};

constexpr PunctuationTable MakePunctuationTable() {
  PunctuationTable table;
  table.Set(0x90, 0x93, "-");
  table.Set(0x94, 0x94, " -- ");
  table.Set(0x95, 0x95, "--");
  table.Set(0x96, 0x96, "|");
  table.Set(0x97, 0x97, "\x89");
  table.Set(0x98, 0x9B, "'");
  table.Set(0x9C, 0x9F, "\"");
  table.Set(0xA2, 0xA2, " . ");
  table.Set(0xA6, 0xA6, "...");
  table.Set(0xB9, 0xB9, "<");
  table.Set(0xBA, 0xBA, ">");
  return table;
}

constexpr PunctuationTable kPunctuation = MakePunctuationTable();

std::size_t FindPunctuationLead(std::string_view line, std::size_t from) {
  return FindBytePair(line, '\xE2', '\x80', from);
}

bool IsKnownPunctuation(std::string_view line, std::size_t at) {
  return at + 2 < line.size() && line[at + 1] == '\x80' &&
         kPunctuation.known[static_cast<unsigned char>(line[at + 2])];
}

}  // namespace

std::string_view TrimControlChars(std::string_view line) {
  std::size_t first = 0;
  std::size_t last = line.size();
  while (first < last && static_cast<unsigned char>(line[first]) <= 32) ++first;
  while (last > first && static_cast<unsigned char>(line[last - 1]) <= 32) --last;
  return line.substr(first, last - first);
}

void Utf8ToAnsiInPlace(AnsiString& line) {
  if (!HasLatinUtf8Lead(line)) return;
  TranslateC2Pairs(line);
  TranslateC3Pairs(line);
  ReplaceEveryPair(line, '\xC4', '\x8D', "c");
}

AnsiString Utf8ToAnsi(std::string_view line, int /*unused*/) {
  AnsiString result(line);
  Utf8ToAnsiInPlace(result);
  return result;
}

// The known sequences never produce the bytes E2 or 80, so one pass over the line gives what
// replacing row by row would give.
void ReplaceUtf8Punctuation(AnsiString& line) {
  std::size_t first = FindPunctuationLead(line, 0);
  if (first == AnsiString::npos) return;
  if (!IsKnownPunctuation(line, first)) {
    line.erase(first, 3);
    return;
  }
  AnsiString result;
  result.reserve(line.size() + line.size() / 3);
  std::size_t copied = 0;
  for (std::size_t at = first; at != AnsiString::npos; at = FindPunctuationLead(line, at)) {
    if (!IsKnownPunctuation(line, at)) {
      ++at;
      continue;
    }
    result.append(line, copied, at - copied);
    result.append(kPunctuation.replacement[static_cast<unsigned char>(line[at + 2])]);
    at += 3;
    copied = at;
  }
  result.append(line, copied, AnsiString::npos);
  line.swap(result);
}

AnsiString SkipHtmlHead(AnsiString line, LineReader& reader, bool& isUtf8, bool& headOpen) {
  constexpr std::string_view kHeadEnd = "</HEAD>";
  headOpen = false;
  for (;;) {
    if (!isUtf8 && DeclaresUtf8Charset(line)) isUtf8 = true;
    std::size_t end = FindIgnoringAsciiCase(line, kHeadEnd);
    if (end != AnsiString::npos) return line.substr(end + kHeadEnd.size());
    std::string_view next;
    if (!reader.NextLine(next)) {
      headOpen = true;
      return AnsiString();
    }
    line.assign(next);
  }
}

}  // namespace wordtally
