#include "input/text_search.h"

#include <cstdint>
#include <cstring>

namespace wordtally {

namespace {

char FoldAscii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

}  // namespace

bool StartsWithIgnoringAsciiCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (FoldAscii(text[i]) != FoldAscii(prefix[i])) return false;
  }
  return true;
}

std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view pattern,
                                  std::size_t from) {
  if (pattern.empty()) return from <= text.size() ? from : std::string_view::npos;
  char lower = FoldAscii(pattern[0]);
  char upper = (lower >= 'a' && lower <= 'z') ? static_cast<char>(lower - 32) : lower;
  for (std::size_t at = from; at + pattern.size() <= text.size(); ++at) {
    if ((text[at] == lower || text[at] == upper) &&
        StartsWithIgnoringAsciiCase(text.substr(at), pattern)) {
      return at;
    }
  }
  return std::string_view::npos;
}

// Looks only at the "=" signs of the text, which are rare in prose.
bool DeclaresUtf8Charset(std::string_view text) {
  constexpr std::string_view kName = "charset";
  std::size_t from = 0;
  while (from < text.size()) {
    const void* hit = std::memchr(text.data() + from, '=', text.size() - from);
    if (!hit) return false;
    std::size_t at = static_cast<std::size_t>(static_cast<const char*>(hit) - text.data());
    std::string_view value = text.substr(at + 1);
    if (at >= kName.size() &&
        StartsWithIgnoringAsciiCase(text.substr(at - kName.size()), kName) &&
        (StartsWithIgnoringAsciiCase(value, "utf-8") ||
         StartsWithIgnoringAsciiCase(value, "\"utf-8\""))) {
      return true;
    }
    from = at + 1;
  }
  return false;
}

std::size_t FindBytePair(std::string_view text, char first, char second, std::size_t from) {
  while (from < text.size()) {
    const void* hit = std::memchr(text.data() + from, first, text.size() - from);
    if (!hit) break;
    std::size_t at = static_cast<std::size_t>(static_cast<const char*>(hit) - text.data());
    if (at + 1 < text.size() && text[at + 1] == second) return at;
    from = at + 1;
  }
  return std::string_view::npos;
}

bool HasHighByte(std::string_view text) {
  constexpr uint64_t kHighBits = 0x8080808080808080ULL;
  std::size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) {
    uint64_t word;
    std::memcpy(&word, text.data() + i, 8);
    if (word & kHighBits) return true;
  }
  for (; i < text.size(); ++i) {
    if (static_cast<unsigned char>(text[i]) >= 0x80) return true;
  }
  return false;
}

}  // namespace wordtally
