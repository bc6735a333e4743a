#pragma once
// Character-entity references of markup text.
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

// True when text, running from "&" up to and including ";", is a character-entity reference:
// a named entity such as "&amp;" or a numeric one beginning "&#".
bool IsCharacterEntity(std::string_view text);

// Replaces the 67 entities of the line walk's table ("&copy;", "&amp;", "&nbsp;", "&#160;",
// "&#8212;" and the 62 Latin-1 letter entities "&AElig;" ... "&yuml;") by their characters.
void ReplaceCharacterEntities(AnsiString& line);

}  // namespace wordtally
