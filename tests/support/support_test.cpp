#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/ansi_text.h"
#include "support/file_utils.h"
#include "support/number_format.h"

namespace wordtally {
namespace {

TEST(AnsiText, ConvertsBetweenCodePageAndUnicode) {
  EXPECT_EQ(AnsiToUtf8("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(AnsiToUtf8("\x80\x91"), "\xE2\x82\xAC\xE2\x80\x98");  // euro sign, left single quote
  EXPECT_EQ(AnsiToUtf16("\x8A"), u"\u0160");
  EXPECT_EQ(Utf8ToAnsiText("\xE2\x82\xAC caf\xC3\xA9"), "\x80 caf\xE9");
  // Outside the code page, malformed, or beyond the basic plane: one '?' each.
  EXPECT_EQ(Utf8ToAnsiText("\xCE\xA9|\xC3|\xF0\x9F\x98\x80"), "?|?|?");
  EXPECT_EQ(Utf16ToAnsi(u"\u0152uvre \u03A9 \U0001F600"), "\x8Cuvre ? ?");
}

TEST(AnsiText, LowerAndUpperCaseCoverTheWholeCodePage) {
  EXPECT_EQ(LowerAnsi("ABC\x8A\x8C\x8E\x9F\xC0\xC6\xD0\xDE"), "abc\x9A\x9C\x9E\xFF\xE0\xE6\xF0\xFE");
  // The multiplication sign, sharp s and symbols have no case.
  EXPECT_EQ(LowerAnsi("\xD7\xDF\xB5 1;"), "\xD7\xDF\xB5 1;");
  EXPECT_EQ(UpperAnsi("\xFF\xE9\xF7z"), "\x9F\xC9\xF7Z");
}

TEST(AnsiText, ComparesInUtf16CodeUnitOrder) {
  EXPECT_LT(CompareCodeUnits("Apple", "apple"), 0);
  EXPECT_LT(CompareCodeUnits("ab", "abc"), 0);
  EXPECT_EQ(CompareCodeUnits("same", "same"), 0);
  // "\x8A" is U+0160 and "\x91" U+2018: both above every Latin-1 letter, though their bytes are
  // smaller.
  EXPECT_GT(CompareCodeUnits("\x8A" "a", "\xE9" "a"), 0);
  EXPECT_GT(CompareCodeUnits("don\x91t", "don\xFFt"), 0);
  EXPECT_LT(CompareCodeUnits("\xE9", "\xFF"), 0);
}

TEST(NumberFormat, GroupsDigitsAndFormatsSizesAndTimes) {
  EXPECT_EQ(FormatWholeNumber(0), "0");
  EXPECT_EQ(FormatWholeNumber(999), "999");
  EXPECT_EQ(FormatWholeNumber(1234), "1,234");
  EXPECT_EQ(FormatWholeNumber(1234567), "1,234,567");
  EXPECT_EQ(FormatWholeNumber(-1234), "-1,234");
  EXPECT_EQ(NumberText(1), " 1");
  EXPECT_EQ(NumberText(0), " 0");
  EXPECT_EQ(NumberText(-1), "-1");

  EXPECT_EQ(FormatFileSize(512, 2), "512 bytes");
  EXPECT_EQ(FormatFileSize(1023, 2), "1023 bytes");
  EXPECT_EQ(FormatFileSize(1024, 2), "1.00 Kb");
  EXPECT_EQ(FormatFileSize(409600, 2), "400.00 Kb");
  EXPECT_EQ(FormatFileSize(1048575, 2), "1,024.00 Kb");
  EXPECT_EQ(FormatFileSize(1572864, 2), "1.50 Mb");
  EXPECT_EQ(FormatFileSize(2048LL * 1048576, 2), "2,048.00 Mb");

  EXPECT_EQ(FormatByteCount(-1, false), "");
  EXPECT_EQ(FormatByteCount(0, false), "0 bytes");
  EXPECT_EQ(FormatByteCount(1234, false), "1,234 bytes");
  EXPECT_EQ(FormatByteCount(1, true), "1 Bytes");

  EXPECT_EQ(FormatElapsedTime(0), "0s");
  EXPECT_EQ(FormatElapsedTime(59), "59s");
  EXPECT_EQ(FormatElapsedTime(65), "1m 05s");
  EXPECT_EQ(FormatElapsedTime(3599), "59m 59s");
  EXPECT_EQ(FormatElapsedTime(3723), "1h 02m 03s");
}

TEST(FileUtils, NamesSizesAndTemporaryFolders) {
  EXPECT_EQ(LowerExtension("/a/Book.TXT"), "txt");
  EXPECT_EQ(LowerExtension("/a.b/noext"), "");
  EXPECT_EQ(FolderPart("/a/b/c.txt"), "/a/b");
  EXPECT_EQ(FolderPart("c.txt"), "");

  std::string folder;
  {
    TemporaryFolder temp;
    ASSERT_TRUE(temp.Valid());
    folder = temp.Path();
    const std::string file = folder + "/x.txt";
    std::ofstream(file) << "12345";
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FileExists(folder));
    EXPECT_TRUE(FolderExists(folder));
    EXPECT_EQ(FileSize(file), 5);
    EXPECT_EQ(FileSize(folder + "/missing"), -1);

    std::filesystem::create_symlink(file, folder + "/link.txt");
    std::filesystem::create_directory(folder + "/sub");
    EXPECT_TRUE(SameFile(file, folder + "/link.txt"));
    EXPECT_TRUE(SameFile(file, folder + "/./sub/../x.txt"));
    EXPECT_FALSE(SameFile(file, folder + "/y.txt"));
  }
  EXPECT_FALSE(FolderExists(folder));
}

}  // namespace
}  // namespace wordtally
