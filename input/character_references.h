#pragma once
// Decoding of the character references of markup text: named ones ("&ldquo;"), decimal ones
// ("&#8220;") and hexadecimal ones ("&#x201C;", "&#X201C;").
#include <cstddef>
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

// The names a document knows: all of the HTML standard's, or XML's five (amp, apos, gt, lt, quot).
enum class ReferenceNames { Html, Xml };

// Decodes the reference that begins with the "&" at position at and appends what it stands for
// to out: a character of the code page as that character, any other as "?" (never part of a
// word, so it still separates words), a soft hyphen as nothing (it joins the halves of its
// word), a control character as a blank. Returns the reference's length, or 0 (out untouched)
// when no known reference begins there, as in "&nosuch;" or "AT&T".
std::size_t DecodeCharacterReferenceAt(std::string_view text, std::size_t at,
                                       ReferenceNames names, AnsiString& out);

}  // namespace wordtally
