#include "input/character_entities.h"

#include <gtest/gtest.h>

namespace wordtally {
namespace {

AnsiString Replaced(AnsiString line) {
  ReplaceCharacterEntities(line);
  return line;
}

TEST(CharacterEntityTest, RecognisesNamedAndNumericReferences) {
  for (const char* text : {"&amp;", "&eacute;", "&#160;", "&#8212;", "&#x2014;", "&frac12;"}) {
    EXPECT_TRUE(IsCharacterEntity(text)) << text;
  }
  for (const char* text : {"&;", "&#;", "&#x;", "&amp", "amp;", "&1abc;", "&#12a;", "&am p;", ""}) {
    EXPECT_FALSE(IsCharacterEntity(text)) << text;
  }
}

TEST(CharacterEntityTest, ReplacesTheTableEntities) {
  EXPECT_EQ(Replaced("caf&eacute; &amp; cr&egrave;me"), "caf\xE9 & cr\xE8me");
  EXPECT_EQ(Replaced("&nbsp;x&#160;"), " x ");
  EXPECT_EQ(Replaced("&copy; 2024&#8212;now"), "\xA9 2024\x97now");
  EXPECT_EQ(Replaced("&Auml;&szlig;&yuml;&AElig;&THORN;&eth;"), "\xC4\xDF\xFF\xC6\xDE\xF0");
  EXPECT_EQ(Replaced("&Oslash;&oslash;&Ccedil;&Yacute;"), "\xD8\xF8\xC7\xDD");
  // Unknown names, wrong case, a missing ";" and a lone "&" stay as they are.
  EXPECT_EQ(Replaced("&foo; &AUML; &eacute x & y &"), "&foo; &AUML; &eacute x & y &");
  // One pass: the "&" that "&amp;" yields does not start another entity.
  EXPECT_EQ(Replaced("&amp;eacute;"), "&eacute;");
  EXPECT_EQ(Replaced("no entities here"), "no entities here");
}

}  // namespace
}  // namespace wordtally
