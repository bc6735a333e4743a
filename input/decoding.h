#pragma once
// Per-line character decoding of input read as Windows-1252: trimming, the byte-level
// translations of UTF-8 text into the code page, and the skipping of an HTML head.
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

class LineReader;

// The two questions the run asks when the file's encoding and the UTF-8 box disagree.
inline constexpr std::string_view kUtf8OrAnsiTitle = "UTF-8 or ANSI file?";
inline constexpr std::string_view kSeemsUtf8Question =
    "This file seems to be UTF-8 encoded.\r\n"
    "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.";
inline constexpr std::string_view kSeemsNotUtf8Question =
    "This file does not seem to be UTF-8 encoded.\r\n"
    "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\n"
    "or 'No' to scan it as ANSI.";

// line without the characters of code 32 or less at both of its ends.
std::string_view TrimControlChars(std::string_view line);

// Turns the two-byte UTF-8 forms of U+0080..U+00FF into their one-byte characters (C2 80..9F
// vanish, C2 A0..BF and C3 80..BF become one character) and C4 8D into "c"; every other byte stays.
// A C2 or C3 followed by a byte outside its range is stepped over unchanged. A line without the
// bytes C2, C3 and C4 is left untouched at once.
void Utf8ToAnsiInPlace(AnsiString& line);
AnsiString Utf8ToAnsi(std::string_view line, int unused = 0);

// Replaces the UTF-8 punctuation E2 80 xx (dashes, quotes, bullet, ellipsis, angle quotes) by
// ASCII replacements. When the first E2 80 sequence of the line is not one of them, only that
// sequence is removed and the line is otherwise left as it is.
void ReplaceUtf8Punctuation(AnsiString& line);

// Reads on from line through the HTML head, switching isUtf8 on when the head declares
// charset=UTF-8, and returns what follows "</HEAD>" on its line ("" when the input ends first,
// and then headOpen is set: a reader of one piece of a file may end inside the head).
AnsiString SkipHtmlHead(AnsiString line, LineReader& reader, bool& isUtf8, bool& headOpen);

}  // namespace wordtally
