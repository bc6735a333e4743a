#include "input/character_entities.h"

#include <algorithm>
#include <array>

namespace wordtally {

namespace {

struct Entity {
  std::string_view name;  // between "&" and ";"
  char replacement;       // Windows-1252
};

// Sorted by name (byte order) for the binary search.
constexpr std::array<Entity, 67> kEntities = {{
    {"#160", ' '},      {"#8212", '\x97'},  {"AElig", '\xC6'},  {"Aacute", '\xC1'},
    {"Acirc", '\xC2'},  {"Agrave", '\xC0'}, {"Aring", '\xC5'},  {"Atilde", '\xC3'},
    {"Auml", '\xC4'},   {"Ccedil", '\xC7'}, {"ETH", '\xD0'},    {"Eacute", '\xC9'},
    {"Ecirc", '\xCA'},  {"Egrave", '\xC8'}, {"Euml", '\xCB'},   {"Iacute", '\xCD'},
    {"Icirc", '\xCE'},  {"Igrave", '\xCC'}, {"Iuml", '\xCF'},   {"Ntilde", '\xD1'},
    {"Oacute", '\xD3'}, {"Ocirc", '\xD4'},  {"Ograve", '\xD2'}, {"Oslash", '\xD8'},
    {"Otilde", '\xD5'}, {"Ouml", '\xD6'},   {"THORN", '\xDE'},  {"Uacute", '\xDA'},
    {"Ucirc", '\xDB'},  {"Ugrave", '\xD9'}, {"Uuml", '\xDC'},   {"Yacute", '\xDD'},
    {"aacute", '\xE1'}, {"acirc", '\xE2'},  {"aelig", '\xE6'},  {"agrave", '\xE0'},
    {"amp", '&'},       {"aring", '\xE5'},  {"atilde", '\xE3'}, {"auml", '\xE4'},
    {"ccedil", '\xE7'}, {"copy", '\xA9'},   {"eacute", '\xE9'}, {"ecirc", '\xEA'},
    {"egrave", '\xE8'}, {"eth", '\xF0'},    {"euml", '\xEB'},   {"iacute", '\xED'},
    {"icirc", '\xEE'},  {"igrave", '\xEC'}, {"iuml", '\xEF'},   {"nbsp", ' '},
    {"ntilde", '\xF1'}, {"oacute", '\xF3'}, {"ocirc", '\xF4'},  {"ograve", '\xF2'},
    {"oslash", '\xF8'}, {"otilde", '\xF5'}, {"ouml", '\xF6'},   {"szlig", '\xDF'},
    {"thorn", '\xFE'},  {"uacute", '\xFA'}, {"ucirc", '\xFB'},  {"ugrave", '\xF9'},
    {"uuml", '\xFC'},   {"yacute", '\xFD'}, {"yuml", '\xFF'},
}};
constexpr size_t kLongestName = 6;

bool IsAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

bool AllOf(std::string_view text, bool (*test)(char)) {
  return !text.empty() && std::all_of(text.begin(), text.end(), test);
}

// The replacement of the table entity with this name, or 0 when the table has none.
char Replacement(std::string_view name) {
  const auto it = std::lower_bound(kEntities.begin(), kEntities.end(), name,
                                   [](const Entity& e, std::string_view n) { return e.name < n; });
  return it != kEntities.end() && it->name == name ? it->replacement : '\0';
}

}  // namespace

bool IsCharacterEntity(std::string_view text) {
  if (text.size() < 3 || text.front() != '&' || text.back() != ';') return false;
  const std::string_view body = text.substr(1, text.size() - 2);
  if (body.front() == '#') {
    const std::string_view number = body.substr(1);
    if (!number.empty() && (number.front() == 'x' || number.front() == 'X')) {
      return AllOf(number.substr(1), IsHexDigit);
    }
    return AllOf(number, IsDigit);
  }
  return IsAsciiLetter(body.front()) &&
         std::all_of(body.begin(), body.end(), [](char c) { return IsAsciiLetter(c) || IsDigit(c); });
}

void ReplaceCharacterEntities(AnsiString& line) {
  size_t read = line.find('&');
  if (read == AnsiString::npos) return;
  // One pass from the first "&": a replacement is never longer than its entity, so the text is
  // compacted in place, and a replaced character is never read again as part of an entity.
  size_t write = read;
  while (read < line.size()) {
    if (line[read] == '&') {
      const size_t limit = std::min(line.size(), read + 2 + kLongestName);
      const size_t semicolon = line.find(';', read + 1);
      if (semicolon != AnsiString::npos && semicolon < limit) {
        const char replacement = Replacement(std::string_view(line).substr(read + 1, semicolon - read - 1));
        if (replacement != '\0') {
          line[write++] = replacement;
          read = semicolon + 1;
          continue;
        }
      }
    }
    line[write++] = line[read++];
  }
  line.resize(write);
}

}  // namespace wordtally
