#include "input/decoding.h"

#include <gtest/gtest.h>

#include "input/line_reader.h"

namespace wordtally {
namespace {

AnsiString Trimmed(AnsiString line) {
  TrimControlChars(line);
  return line;
}

AnsiString Punctuated(AnsiString line) {
  ReplaceUtf8Punctuation(line);
  return line;
}

TEST(TrimControlCharsTest, RemovesCodesUpToBlankFromBothEnds) {
  EXPECT_EQ(Trimmed("\t  word one \x01\r"), "word one");
  EXPECT_EQ(Trimmed(" \t \t "), "");
  EXPECT_EQ(Trimmed(""), "");
  EXPECT_EQ(Trimmed("x"), "x");
  EXPECT_EQ(Trimmed("\xA0x!"), "\xA0x!");  // code 160 is above 32
}

TEST(Utf8ToAnsiTest, TranslatesTheLatinOnePairs) {
  EXPECT_EQ(Utf8ToAnsi("caf\xC3\xA9"), "caf\xE9");
  EXPECT_EQ(Utf8ToAnsi("\xC2\xA0", 0), "\xA0");
  EXPECT_EQ(Utf8ToAnsi("a\xC2\x85z"), "az");
  EXPECT_EQ(Utf8ToAnsi("\xC2\xA9 \xC2\xA9 \xC2\xBF"), "\xA9 \xA9 \xBF");
  EXPECT_EQ(Utf8ToAnsi("\xC3\x80\xC3\xBF"), "\xC0\xFF");
  EXPECT_EQ(Utf8ToAnsi("\xC4\x8D\xC4\x8D"), "cc");
  // Other two-byte forms stay as their two characters.
  EXPECT_EQ(Utf8ToAnsi("\xC4\x81\xC5\x93\xDF\xBF"), "\xC4\x81\xC5\x93\xDF\xBF");
  EXPECT_EQ(Utf8ToAnsi("plain ASCII"), "plain ASCII");
}

TEST(Utf8ToAnsiTest, FollowsTheOrderOfItsSteps) {
  // C3 83 makes the character C3, which is not looked at again.
  EXPECT_EQ(Utf8ToAnsi("\xC3\x83\xA9"), "\xC3\xA9");
  // Removing C2 85 joins C2 A0 behind the position already searched: it stays.
  EXPECT_EQ(Utf8ToAnsi("\xC2\x85\xC2\xA0"), "\xC2\xA0");
  // A removal in step 1 can form a C3 pair for step 2.
  EXPECT_EQ(Utf8ToAnsi("\xC3\xC2\x85\xA9"), "\xE9");
}

TEST(Utf8ToAnsiTest, StepsOverBadPairsAndLoneLeads) {
  EXPECT_EQ(Utf8ToAnsi("\xC2" "A\xC2\xA0"), "\xC2" "A\xA0");
  EXPECT_EQ(Utf8ToAnsi("\xC3(\xC3\xA9"), "\xC3(\xE9");
  EXPECT_EQ(Utf8ToAnsi("\xC2\xC3\xA9"), "\xC2\xE9");
  EXPECT_EQ(Utf8ToAnsi("end\xC3"), "end\xC3");
  EXPECT_EQ(Utf8ToAnsi("end\xC2"), "end\xC2");
  EXPECT_EQ(Utf8ToAnsi(""), "");
}

TEST(ReplaceUtf8PunctuationTest, AppliesTheTable) {
  EXPECT_EQ(Punctuated("a\xE2\x80\x94" "b"), "a -- b");
  EXPECT_EQ(Punctuated("\xE2\x80\xA2x"), " . x");
  EXPECT_EQ(Punctuated("\xE2\x80\x9Chi\xE2\x80\x9D \xE2\x80\x9E\xE2\x80\x9F"), "\"hi\" \"\"");
  EXPECT_EQ(Punctuated("\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9A\xE2\x80\x9B"), "''''");
  EXPECT_EQ(Punctuated("\xE2\x80\x90\xE2\x80\x91\xE2\x80\x92\xE2\x80\x93"), "----");
  EXPECT_EQ(Punctuated("\xE2\x80\x95|\xE2\x80\x96|\xE2\x80\x97"), "--|||\x89");
  EXPECT_EQ(Punctuated("wait\xE2\x80\xA6 \xE2\x80\xB9q\xE2\x80\xBA"), "wait... <q>");
  EXPECT_EQ(Punctuated("no punctuation \xE2\x81\x80"), "no punctuation \xE2\x81\x80");
}

TEST(ReplaceUtf8PunctuationTest, AnUnknownFirstSequenceIsOnlyRemoved) {
  EXPECT_EQ(Punctuated("x\xE2\x80\xB0y\xE2\x80\x94z"), "xy\xE2\x80\x94z");
  // An unknown sequence after a known first one stays.
  EXPECT_EQ(Punctuated("\xE2\x80\x93" "a\xE2\x80\xB0"), "-a\xE2\x80\xB0");
  EXPECT_EQ(Punctuated("\xE2\x80\xE2\x80\x94"), "\x80\x94");
  EXPECT_EQ(Punctuated("cut\xE2\x80"), "cut");
}

TEST(SkipHtmlHeadTest, ReadsThroughTheHeadAndNoticesTheCharset) {
  LineReader reader;
  reader.OpenText("<title>Head words</title>\n<meta charset=\"utf-8\">\n</HeAd><body>Rest\nnext");
  bool isUtf8 = false;
  EXPECT_EQ(SkipHtmlHead("<html><head>", reader, isUtf8), "<body>Rest");
  EXPECT_TRUE(isUtf8);
  std::string_view line;
  ASSERT_TRUE(reader.NextLine(line));
  EXPECT_EQ(line, "next");

  reader.OpenText("<meta content=\"text/html; CharSet=UTF-8\"></head>");
  isUtf8 = false;
  EXPECT_EQ(SkipHtmlHead("<head>", reader, isUtf8), "");
  EXPECT_TRUE(isUtf8);

  reader.OpenText("<meta charset=\"iso-8859-1\">\nno end of head");
  isUtf8 = false;
  EXPECT_EQ(SkipHtmlHead("<head>", reader, isUtf8), "");
  EXPECT_FALSE(isUtf8);
}

}  // namespace
}  // namespace wordtally
