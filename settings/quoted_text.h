#pragma once
// A text value as it stands in a settings file: in double quotes, UTF-8, with escapes for the
// characters that would break the line or be invisible, so that any text reads back unchanged.
#include <string>
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

// Windows-1252 text -> "..." in UTF-8. Escapes: \\ \" \r \n \t, and \xHH for the other
// control characters and the five byte values the code page leaves unassigned.
std::string QuoteSettingText(std::string_view text);

// The reverse of QuoteSettingText. On failure returns false, leaves text alone and sets problem
// to a phrase that completes "the value ..." (for example "has no closing double quote").
bool UnquoteSettingText(std::string_view quotedUtf8, AnsiString& text, AnsiString& problem);

}  // namespace wordtally
