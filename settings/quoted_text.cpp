#include "settings/quoted_text.h"

namespace wordtally {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

// Control characters, and the unassigned bytes that would appear as invisible C1 controls.
bool NeedsHexEscape(unsigned char c) {
  return c < 0x20 || c == 0x7F || c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D;
}

int HexDigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Characters written as a backslash and a letter of their own, in both directions.
struct NamedEscape {
  char character;
  char letter;
};
constexpr NamedEscape kNamedEscapes[] = {
    {'\\', '\\'}, {'"', '"'}, {'\r', 'r'}, {'\n', 'n'}, {'\t', 't'}};

void AppendEscaped(unsigned char c, AnsiString& out) {
  for (const NamedEscape& escape : kNamedEscapes) {
    if (static_cast<char>(c) == escape.character) {
      out += '\\';
      out += escape.letter;
      return;
    }
  }
  if (NeedsHexEscape(c)) {
    out += "\\x";
    out += kHexDigits[c >> 4];
    out += kHexDigits[c & 0x0F];
  } else {
    out += static_cast<char>(c);
  }
}

bool DecodeHexEscape(std::string_view quoted, size_t& pos, AnsiString& out, AnsiString& problem) {
  const int high = pos + 1 < quoted.size() ? HexDigitValue(quoted[pos + 1]) : -1;
  const int low = pos + 2 < quoted.size() ? HexDigitValue(quoted[pos + 2]) : -1;
  if (high < 0 || low < 0) {
    problem = "has an escape \\x without two hexadecimal digits";
    return false;
  }
  out += static_cast<char>(high * 16 + low);
  pos += 2;
  return true;
}

// Decodes the escape whose backslash is at quoted[pos]; pos is left on its last character.
bool DecodeEscape(std::string_view quoted, size_t& pos, AnsiString& out, AnsiString& problem) {
  if (pos + 1 >= quoted.size()) {
    problem = "ends inside an escape";
    return false;
  }
  const char letter = quoted[++pos];
  if (letter == 'x') return DecodeHexEscape(quoted, pos, out, problem);
  for (const NamedEscape& escape : kNamedEscapes) {
    if (letter == escape.letter) {
      out += escape.character;
      return true;
    }
  }
  problem = AnsiString("has the unknown escape \\") + letter;
  return false;
}

}  // namespace

std::string QuoteSettingText(std::string_view text) {
  AnsiString quoted = "\"";
  for (unsigned char c : text) AppendEscaped(c, quoted);
  quoted += '"';
  return AnsiToUtf8(quoted);  // the escapes are ASCII, so only the letters change form
}

bool UnquoteSettingText(std::string_view quotedUtf8, AnsiString& text, AnsiString& problem) {
  const AnsiString quoted = Utf8ToAnsiText(quotedUtf8);
  // A malformed byte or a character outside the code page would come back as '?': refuse it
  // rather than load a path or word that silently differs from the file.
  if (AnsiToUtf8(quoted) != quotedUtf8) {
    problem = "is not UTF-8 text in the Windows-1252 character set";
    return false;
  }
  if (quoted.empty() || quoted.front() != '"') {
    problem = "is not text in double quotes";
    return false;
  }
  AnsiString decoded;
  size_t pos = 1;
  for (; pos < quoted.size() && quoted[pos] != '"'; ++pos) {
    if (quoted[pos] != '\\') {
      decoded += quoted[pos];
    } else if (!DecodeEscape(quoted, pos, decoded, problem)) {
      return false;
    }
  }
  if (pos == quoted.size()) {
    problem = "has no closing double quote";
    return false;
  }
  if (pos + 1 != quoted.size()) {
    problem = "has more text after the closing double quote";
    return false;
  }
  text = std::move(decoded);
  return true;
}

}  // namespace wordtally
