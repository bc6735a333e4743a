#pragma once
// Which rules decide how an input's text is accepted: the classic ones, or those for the text of
// today's systems (the "modern text handling" setting, off by default).
namespace wordtally {

// Modern: a file with Unix line ends is counted at any size without notices or questions; a
// file of valid UTF-8 with at least one multi-byte sequence is taken as UTF-8, and every file
// taken as UTF-8 is also checked for control characters; clipboard text and standard input are
// refused only for whole code units below 32 other than tab, line feed, form feed and return.
enum class TextRules { Classic, Modern };

}  // namespace wordtally
