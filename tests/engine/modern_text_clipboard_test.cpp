// The plain-text test of clipboard text under the modern text rules.
#include <gtest/gtest.h>

#include "engine/clipboard_input.h"

namespace wordtally {
namespace {

TEST(ModernPlainText, RefusesOnlyWholeCodeUnitsBelow32) {
  // U+2019 and U+0101 have the low bytes 19 and 01 of control characters.
  const std::u16string typographic = u"It\u2019s \u0101 \u2014 \u0119";
  EXPECT_FALSE(IsPlainText(typographic, 3000, true));
  EXPECT_TRUE(IsPlainText(typographic, 3000, true, TextRules::Modern));
  EXPECT_TRUE(IsPlainText(u"tab\tline\r\nfeed\f", 3000, true, TextRules::Modern));
  for (char16_t control : {u'\0', u'\x1B', u'\x1F', u'\b'}) {
    EXPECT_FALSE(IsPlainText(u"word" + std::u16string(1, control), 3000, true, TextRules::Modern));
  }
}

}  // namespace
}  // namespace wordtally
