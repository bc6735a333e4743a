#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>

#include "support/ansi_text.h"
#include "support/code_unit_sort.h"
#include "support/file_utils.h"
#include "support/number_format.h"

namespace wordtally {

// Each pair: what a routine gave, and what it should give.
static void ExpectEach(std::initializer_list<std::pair<std::string, std::string>> results) {
  for (const auto& [actual, expected] : results) EXPECT_EQ(actual, expected);
}

TEST(AnsiText, ConvertsCasesTrimsAndOrdersOverTheWholeCodePage) {
  EXPECT_EQ(AnsiToUtf16("\x8A"), u"\u0160");
  ExpectEach({{AnsiToUtf8("caf\xE9"), "caf\xC3\xA9"},
              {AnsiToUtf8("\x80\x91"), "\xE2\x82\xAC\xE2\x80\x98"},  // euro, left quote
              {Utf8ToAnsiText("\xE2\x82\xAC caf\xC3\xA9\xC2\xA0"), "\x80 caf\xE9\xA0"},
              // Outside the code page, malformed, or beyond the basic plane: one '?' each.
              {Utf8ToAnsiText("\xCE\xA9|\xC3|\xF0\x9F\x98\x80"), "?|?|?"},
              {Utf16ToAnsi(u"\u0152uvre \u03A9 \U0001F600"), "\x8Cuvre ? ?"},
              // Only a high surrogate followed by a low one makes one character.
              {Utf16ToAnsi(u"a\xDC00|\U00010000|\uE000\U0001F600|\xD800"), "a?|?|??|?"}});
  // The multiplication sign, sharp s and symbols have no case.
  ExpectEach({{LowerAnsi("AZ\x8A\x8C\x8E\x9F\xC0\xDE"), "az\x9A\x9C\x9E\xFF\xE0\xFE"},
              {LowerAnsi("\xD7\xDF\xB5;"), "\xD7\xDF\xB5;"}, {UpperAnsi("\xFF\xE9z"), "\x9F\xC9Z"},
              {std::string(TrimBlanks("  a b")), "a b"}, {std::string(TrimBlanks("x ")), "x"},
              {std::string(TrimBlanks("   ")), ""}});
  EXPECT_TRUE(EqualIgnoringCase("\xC9" "cole", "\xE9" "COLE"));
  EXPECT_FALSE(EqualIgnoringCase("ab", "abc"));
  // Each pair in UTF-16 code unit order: "\x8A" (U+0160) and "\x91" (U+2018) come after every
  // Latin-1 letter, though their bytes are smaller.
  for (auto [a, b] : {std::pair{"Apple", "apple"}, {"ab", "abc"}, {"\xE9" "a", "\x8A" "a"},
                      {"don\xFFt", "don\x91t"}, {"\xE9", "\xFF"}}) {
    EXPECT_TRUE(CompareCodeUnits(a, b) < 0 && CompareCodeUnits(b, a) > 0) << a << " " << b;
  }
  EXPECT_EQ(CompareCodeUnits("same", "same"), 0);
}

TEST(CodeUnitSort, OrdersTextsAsCompareCodeUnitsWithEqualTextsInTheirOrder) {
  using namespace std::string_view_literals;
  const struct { std::vector<std::string_view> texts; std::vector<uint32_t> order; } cases[] = {
      {{}, {}},
      {{"x"}, {0}},
      {{"b", "a", "b"}, {1, 0, 2}},
      {{"ba", "ab", "aa", "b"}, {2, 1, 3, 0}},
      // Alike over their first eight bytes: the rest decides, a shorter text first.
      {{"abcdefghZ", "abcdefgh", "abcdefghA", "abcdefgh", "abcdefgg"}, {4, 1, 3, 2, 0}},
      // A zero byte is more than the end of a text; "" comes first.
      {{"ab\0"sv, "ab", "a", ""}, {3, 2, 1, 0}},
      // U+0160, U+00E9, U+20AC, U+00FF, U+007A, U+0178, U+0081, U+00A0.
      {{"\x8A", "\xE9", "\x80", "\xFF", "z", "\x9F", "\x81", "\xA0"}, {4, 6, 7, 1, 3, 0, 5, 2}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CodeUnitOrder(static_cast<uint32_t>(c.texts.size()),
                            [&c](uint32_t i) { return c.texts[i]; }),
              c.order)
        << testing::PrintToString(c.texts);
  }
  // Many texts of a few letters, ASCII and not, of up to eleven bytes: the order a comparison
  // sort gives.
  std::minstd_rand random(1);
  std::vector<std::string> many(3000);
  for (std::string& text : many) {
    text.resize(random() % 12);
    for (char& c : text) c = "aZ\x8A\xE9\x80"[random() % 5];
  }
  std::vector<uint32_t> expected(many.size());
  std::iota(expected.begin(), expected.end(), 0u);
  std::stable_sort(expected.begin(), expected.end(),
                   [&many](uint32_t a, uint32_t b) { return LessCodeUnits(many[a], many[b]); });
  EXPECT_EQ(CodeUnitOrder(static_cast<uint32_t>(many.size()),
                          [&many](uint32_t i) { return std::string_view(many[i]); }),
            expected);
}

TEST(NumberFormat, GroupsDigitsAndFormatsSizesAndTimes) {
  ExpectEach({{FormatWholeNumber(0), "0"}, {FormatWholeNumber(999), "999"},
              {FormatWholeNumber(1234), "1,234"}, {FormatWholeNumber(1234567), "1,234,567"},
              {FormatWholeNumber(-1234), "-1,234"}, {NumberText(1), " 1"}, {NumberText(0), " 0"},
              {NumberText(-1), "-1"}, {FormatFileSize(512, 2), "512 bytes"},
              {FormatFileSize(1023, 2), "1023 bytes"}, {FormatFileSize(1024, 2), "1.00 Kb"},
              {FormatFileSize(409600, 2), "400.00 Kb"}, {FormatFileSize(1048575, 2), "1,024.00 Kb"},
              {FormatFileSize(1572864, 2), "1.50 Mb"},
              {FormatFileSize(2048LL * 1048576, 2), "2,048.00 Mb"},
              {FormatByteCount(-1, false), ""}, {FormatByteCount(0, false), "0 bytes"},
              {FormatByteCount(1234, false), "1,234 bytes"}, {FormatByteCount(1, true), "1 Bytes"},
              {FormatElapsedTime(0), "0s"}, {FormatElapsedTime(59), "59s"},
              {FormatElapsedTime(65), "1m 05s"}, {FormatElapsedTime(3599), "59m 59s"},
              {FormatElapsedTime(3723), "1h 02m 03s"}});
}

TEST(FileUtils, NamesSizesAndTemporaryFolders) {
  ExpectEach({{LowerExtension("/a/Book.TXT"), "txt"}, {LowerExtension("/a.b/noext"), ""},
              {FolderPart("/a/b/c.txt"), "/a/b"}, {FolderPart("c.txt"), ""}});
  std::string folder;
  {
    TemporaryFolder temp;
    folder = temp.Path();
    const std::string file = folder + "/x.txt";
    std::ofstream(file) << "12345";
    std::filesystem::create_symlink(file, folder + "/link.txt");
    std::filesystem::create_directory(folder + "/sub");  // sub/.. must exist to name the file
    EXPECT_EQ(std::tuple(temp.Valid(), FileExists(file), FileExists(folder), FolderExists(folder),
                         FileSize(file), FileSize(folder + "/missing"),
                         SameFile(file, folder + "/link.txt"), SameFile(file, folder + "/y.txt"),
                         SameFile(file, folder + "/./sub/../x.txt")),
              std::tuple(true, true, false, true, 5, -1, true, false, true));
  }
  EXPECT_FALSE(FolderExists(folder));
}

}  // namespace wordtally
