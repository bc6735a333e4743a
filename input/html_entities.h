#pragma once
// The named character references of the HTML standard ("&eacute;", "&ldquo;", "&shy;" ...). The
// table itself is generated (html_entity_table.cpp, by scripts/generate_html_entity_table.py).
#include <span>
#include <string_view>

namespace wordtally {

struct NamedCharacterReference {
  std::string_view name;  // without "&" and ";"
  char32_t first;         // the character it stands for
  char32_t second = 0;    // a few stand for two (a letter and a combining mark); else 0
};

// Every reference, sorted by name in byte order.
std::span<const NamedCharacterReference> HtmlNamedReferences();

}  // namespace wordtally
