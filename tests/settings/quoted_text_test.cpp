#include "settings/quoted_text.h"

#include <gtest/gtest.h>

namespace wordtally {
namespace {

TEST(QuotedText, EscapesOnlyWhatWouldBreakTheLineOrHideInIt) {
  EXPECT_EQ(QuoteSettingText(""), "\"\"");
  EXPECT_EQ(QuoteSettingText(" a=b #c ;d "), "\" a=b #c ;d \"");
  EXPECT_EQ(QuoteSettingText("C:\\x\"y"), "\"C:\\\\x\\\"y\"");
  EXPECT_EQ(QuoteSettingText("1\r\n2\t3"), "\"1\\r\\n2\\t3\"");
  EXPECT_EQ(QuoteSettingText(std::string("a\0b", 3)), "\"a\\x00b\"");
  EXPECT_EQ(QuoteSettingText("\x1F\x7F\x81\x8D\x8F\x90\x9D"),
            "\"\\x1F\\x7F\\x81\\x8D\\x8F\\x90\\x9D\"");
  // Letters and signs of the code page are written as UTF-8: é is U+00E9, € (0x80) U+20AC.
  EXPECT_EQ(QuoteSettingText("caf\xE9 \x80"), "\"caf\xC3\xA9 \xE2\x82\xAC\"");
}

TEST(QuotedText, ReadsEscapesAndLettersBack) {
  AnsiString text;
  AnsiString problem;
  ASSERT_TRUE(UnquoteSettingText("\"x\\x41\\x7a\\\\\\\"\\t\"", text, problem)) << problem;
  EXPECT_EQ(text, "xAz\\\"\t");
  ASSERT_TRUE(UnquoteSettingText("\"\xC3\xA9\xE2\x82\xAC\"", text, problem)) << problem;
  EXPECT_EQ(text, "\xE9\x80");
  ASSERT_TRUE(UnquoteSettingText("\"\"", text, problem)) << problem;
  EXPECT_EQ(text, "");

  AnsiString everyByte;
  for (int c = 0; c < 256; ++c) everyByte += static_cast<char>(c);
  ASSERT_TRUE(UnquoteSettingText(QuoteSettingText(everyByte), text, problem)) << problem;
  EXPECT_EQ(text, everyByte);
}

TEST(QuotedText, RefusesMalformedValuesAndLeavesTheTextAlone) {
  const struct {
    std::string quoted;
    AnsiString problem;
  } cases[] = {
      {"abc", "is not text in double quotes"},
      {"", "is not text in double quotes"},
      {"\"abc", "has no closing double quote"},
      {"\"abc\\\"", "has no closing double quote"},
      {"\"abc\\", "ends inside an escape"},
      {"\"a\\qb\"", "has the unknown escape \\q"},
      {"\"\\x4\"", "has an escape \\x without two hexadecimal digits"},
      {"\"\\xG1\"", "has an escape \\x without two hexadecimal digits"},
      {"\"a\" b", "has more text after the closing double quote"},
      {"\"\xC3\"", "is not UTF-8 text in the Windows-1252 character set"},
      {"\"\xE9\"", "is not UTF-8 text in the Windows-1252 character set"},
      {"\"\xCE\xA9\"", "is not UTF-8 text in the Windows-1252 character set"},  // Greek Omega
  };
  for (const auto& c : cases) {
    AnsiString text = "unchanged";
    AnsiString problem;
    EXPECT_FALSE(UnquoteSettingText(c.quoted, text, problem)) << c.quoted;
    EXPECT_EQ(problem, c.problem) << c.quoted;
    EXPECT_EQ(text, "unchanged") << c.quoted;
  }
}

}  // namespace
}  // namespace wordtally
