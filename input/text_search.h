#pragma once
// Case-insensitive searches for ASCII patterns in Windows-1252 lines.
#include <cstddef>
#include <string_view>

namespace wordtally {

// Position of the first occurrence of pattern in text with ASCII letters compared regardless of
// case (pattern written in either case), or std::string_view::npos.
std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view pattern,
                                  std::size_t from = 0);
bool StartsWithIgnoringAsciiCase(std::string_view text, std::string_view prefix);

// True when text holds charset=UTF-8 or charset="UTF-8", in any letter case.
bool DeclaresUtf8Charset(std::string_view text);

// Position of the first byte pair (first, second) at or after from, or std::string_view::npos.
std::size_t FindBytePair(std::string_view text, char first, char second, std::size_t from = 0);

// True when text holds any byte of 128 or above (a fast test of eight bytes at a time).
bool HasHighByte(std::string_view text);

}  // namespace wordtally
