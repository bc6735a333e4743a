#include "engine/word_extraction.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "engine/engine_context.h"
#include "tests/common/scripted_host.h"

namespace wordtally {
namespace {

using Counts = std::map<AnsiString, int32_t>;

TEST(WordCharTest, LettersDigitsAndExtraCharacters) {
  for (char c : {'a', 'Z', '\xC0', '\xD6', '\xD8', '\xF6', '\xF8', '\xFF'}) {
    EXPECT_TRUE(IsWordChar(c, false, "")) << static_cast<int>(static_cast<unsigned char>(c));
  }
  // × ÷ Œ œ Š ¿ and the typographic quote are not letters; digits need allowDigits.
  for (char c : {'\xD7', '\xF7', '\x8C', '\x9C', '\x8A', '\xBF', '\x91', '5', '-', ' '}) {
    EXPECT_FALSE(IsWordChar(c, false, "")) << static_cast<int>(static_cast<unsigned char>(c));
  }
  EXPECT_TRUE(IsWordChar('5', true, ""));
  EXPECT_TRUE(IsWordChar('5', false, "0123456789"));
  EXPECT_TRUE(IsWordChar('-', false, "-"));
  EXPECT_TRUE(IsWordChar('\x91', false, "'\x91"));
}

TEST(ScanWordCharsTest, CountsTheRunAndDescribesItsEnd) {
  const WordCharRun semicolon = ScanWordChars("abc;def", 1, false, "");
  EXPECT_EQ(semicolon.length, 3);
  EXPECT_TRUE(semicolon.endsAtSemicolon);
  EXPECT_FALSE(semicolon.endsAtComma);
  EXPECT_TRUE(ScanWordChars("x abc.", 3, false, "").endsAtFullStop);
  EXPECT_TRUE(ScanWordChars("ab\"", 1, false, "").endsAtDoubleQuote);
  EXPECT_TRUE(ScanWordChars("ab\t", 1, false, "").endsAtTab);
  EXPECT_TRUE(ScanWordChars("ab'", 1, false, "").endsAtApostrophe);
  EXPECT_TRUE(ScanWordChars("ab,", 1, false, "").endsAtComma);
  EXPECT_EQ(ScanWordChars("ab'c", 1, false, "'").length, 4);

  const WordCharRun atEnd = ScanWordChars("abc", 1, false, "");
  EXPECT_EQ(atEnd.length, 3);
  EXPECT_FALSE(atEnd.endsAtSemicolon || atEnd.endsAtFullStop || atEnd.endsAtDoubleQuote ||
               atEnd.endsAtTab || atEnd.endsAtApostrophe || atEnd.endsAtComma);
  EXPECT_EQ(ScanWordChars(" abc", 1, false, "").length, 0);
  EXPECT_EQ(ScanWordChars(std::string(70000, 'a'), 1, false, "").length, 65000);
  EXPECT_EQ(ScanWordChars(std::string(70000, 'a'), 65001, false, "").length, 5000);

  // Long runs of letters with other word characters, and ends, on either side of 8-byte steps.
  const std::string mixed = "abcdefghij-klmnop\xE9qrs tuv";  // 10 + 1 + 6 + 1 + 3 characters
  EXPECT_EQ(ScanWordChars(mixed, 1, false, "-").length, 21);
  EXPECT_EQ(ScanWordChars(mixed, 1, false, "").length, 10);
  EXPECT_EQ(ScanWordChars(mixed, 12, false, "").length, 10);
  EXPECT_EQ(ScanWordChars("ABCDEFGH[abc", 1, false, "").length, 8);
  EXPECT_EQ(ScanWordChars("abcdefg@bc", 1, false, "").length, 7);
  EXPECT_EQ(ScanWordChars("abcdefgh\xD7ijk", 1, false, "").length, 8);  // the multiplication sign
  EXPECT_EQ(ScanWordChars("abcdefghijklmnop`", 1, false, "").length, 16);
  EXPECT_EQ(ScanWordChars("abcdefghijklmnopq{", 1, false, "").length, 17);
}

TEST(ShapeTest, RepeatedCharactersAndRomanNumerals) {
  EXPECT_TRUE(IsRepeatedChar("aaaa"));
  EXPECT_TRUE(IsRepeatedChar("---"));
  EXPECT_TRUE(IsRepeatedChar(" zz "));
  EXPECT_FALSE(IsRepeatedChar(""));
  EXPECT_FALSE(IsRepeatedChar("   "));
  EXPECT_FALSE(IsRepeatedChar("ab"));

  for (const char* word : {"I", "i", "DIM", "MID", "LIVID", "CIVIL", "vivid", "Dill", "cat"}) {
    EXPECT_FALSE(IsRomanNumeral(word, false)) << word;
  }
  for (const char* word : {"II", "IV", "XIV", "MCM", "xiv", "mix", "civic"}) {
    EXPECT_TRUE(IsRomanNumeral(word, false)) << word;
  }
  EXPECT_TRUE(IsRomanNumeral("XIV", true));
  EXPECT_FALSE(IsRomanNumeral("MCM", true));
  EXPECT_FALSE(IsRomanNumeral("LID", true));
}

TEST(CleanLineTest, ControlCharactersAndHtmlComments) {
  AnsiString line = "a\bb\tc\rd\ne\ff\xA0g";
  CleanLine(line, false);
  EXPECT_EQ(line, "ab c d e f g");
  line = "a\tb\b";
  CleanLine(line, true);
  EXPECT_EQ(line, "a\tb");

  line = "one<!-- two -->three <!--x--> four";
  RemoveHtmlComments(line);
  EXPECT_EQ(line, "onethree  four");
  line = "open <!-- never closed";
  RemoveHtmlComments(line);
  EXPECT_EQ(line, "open <!-- never closed");
}

class LineWalkTest : public ::testing::Test {
 protected:
  LineWalkTest() : ctx(host, settings) {}

  // Walks the lines as the run driver hands them over (with one trailing blank).
  void Walk(std::initializer_list<const char*> lines) {
    LineWalker walker(ctx);
    for (const char* line : lines) {
      ctx.run.strLine = AnsiString(line) + " ";
      walker.WalkLine();
    }
  }

  Counts Words() const {
    Counts counts;
    const auto records = ctx.store.WordList();
    for (size_t i = 1; i < records.size(); ++i) counts[records[i].Word] = records[i].Frequency;
    return counts;
  }

  testing::ScriptedHost host;
  CountingSettings settings;
  EngineContext ctx;
};

TEST_F(LineWalkTest, ShortWordsCaseFoldingAndTheTotal) {
  Walk({"An apple of the I tree, and THE tree."});
  EXPECT_EQ(Words(), (Counts{{"and", 1}, {"apple", 1}, {"the", 2}, {"tree", 2}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 6);
}

TEST_F(LineWalkTest, CaseKeptWhenSignificantAndPluralsAfterFolding) {
  settings.chkCaseSignificant = 1;
  Walk({"The the THE"});
  EXPECT_EQ(Words(), (Counts{{"THE", 1}, {"The", 1}, {"the", 1}}));

  ctx.store.Reset();
  settings.chkCaseSignificant = 0;
  settings.chkDropFinalS = 1;
  Walk({"MICE Cities"});
  EXPECT_EQ(Words(), (Counts{{"city", 1}, {"mouse", 1}}));
}

TEST_F(LineWalkTest, Apostrophes) {
  settings.chkAllowWordsWithApostrophes = 1;
  // The typographic apostrophe, unlike "'", may begin a word.
  Walk({"'tis don't \x91quote\x92"});
  EXPECT_EQ(Words(), (Counts{{"don't", 1}, {"tis", 1}, {"\x91quote", 1}}));

  ctx.store.Reset();
  settings.chkAllowWordsWithApostrophes = 0;
  Walk({"don't wasn't couldn't"});
  EXPECT_EQ(Words(), (Counts{{"don", 1}}));
}

TEST_F(LineWalkTest, NumeralsAndSigns) {
  settings.chkAllowWordsWithNumerals = 1;
  settings.chkIgnoreNoVowel = 0;
  Walk({"123\xD7" "456 abc123def 7\xF7" "89"});
  EXPECT_EQ(Words(), (Counts{{"123", 1}, {"456", 1}, {"abc123def", 1}}));

  ctx.store.Reset();
  settings.chkAllowWordsWithNumerals = 0;
  Walk({"abc123def"});
  EXPECT_EQ(Words(), (Counts{{"abc", 1}, {"def", 1}}));
}

TEST_F(LineWalkTest, HyphensRepeatsNumeralsAndLetterOutsideLatin1) {
  Walk({"well-known -known known- --- aaa XIV mix Livid \x8Cuvre"});
  EXPECT_EQ(Words(), (Counts{{"known", 2}, {"livid", 1}, {"uvre", 1}, {"well-known", 1}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 5);
}

TEST_F(LineWalkTest, CommentsSpanLines) {
  Walk({"alpha /* beta", "gamma */ delta // epsilon */ omega", "zeta/*eta*/theta"});
  EXPECT_EQ(Words(), (Counts{{"alpha", 1}, {"delta", 1}, {"theta", 1}, {"zeta", 1}}));
  EXPECT_EQ(ctx.run.comment.intWithinComment, -1);

  ctx.store.Reset();
  Walk({"open /* still", "inside"});
  EXPECT_EQ(Words(), (Counts{{"open", 1}}));
  EXPECT_EQ(ctx.run.comment.intWithinComment, 0);
}

TEST_F(LineWalkTest, CommentMarkersSwitchedOffOrUserDefined) {
  settings.chkAllowCommentMarkers = 0;
  Walk({"alpha /* beta */ gamma"});
  EXPECT_EQ(Words(), (Counts{{"alpha", 1}, {"beta", 1}, {"gamma", 1}}));

  ctx.store.Reset();
  settings.chkAllowCommentMarkers = 1;
  settings.txbStartComment = {"", "{"};
  settings.txbEndComment = {"", "}"};
  Walk({"alpha {beta} gamma /* delta */"});
  EXPECT_EQ(Words(), (Counts{{"alpha", 1}, {"delta", 1}, {"gamma", 1}}));
}

TEST_F(LineWalkTest, HtmlCommentsAndCharacterEntities) {
  Walk({"one <!-- two --> three caf&eacute;"});
  EXPECT_EQ(Words(), (Counts{{"caf", 1}, {"eacute", 1}, {"one", 1}, {"three", 1}}));

  ctx.store.Reset();
  ctx.run.blnCharacterEntitiesPossible = true;
  Walk({"caf&eacute; cr&egrave;me"});
  EXPECT_EQ(Words(), (Counts{{"caf\xE9", 1}, {"cr\xE8me", 1}}));
}

TEST_F(LineWalkTest, ExcludedWordsStillCountInTheTotal) {
  settings.strWordsToIgnore = " the ";
  Walk({"the them The"});
  EXPECT_EQ(Words(), (Counts{{"them", 1}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 3);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 2);
}

TEST_F(LineWalkTest, StopsAfterTheWordWhenAsked) {
  ctx.run.blnStop = true;
  Walk({"alpha beta gamma"});
  EXPECT_EQ(Words(), (Counts{{"alpha", 1}}));
}

TEST_F(LineWalkTest, ReadingCommonWordsGoesStraightToTheStore) {
  ctx.run.blnReadingWords = true;
  settings.chkDropFinalS = 1;
  settings.chkAllowCommentMarkers = 0;  // the "C" markers apply all the same
  settings.strWordsToIgnore = " trees ";
  Walk({"// heading line", "trees /* note */ couldn", "trees"});
  EXPECT_EQ(Words(), (Counts{{"couldn", 1}, {"trees", 2}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 0);
}

TEST_F(LineWalkTest, GivesTheEventLoopTurnsOnlyAfterStartUp) {
  AnsiString line;
  for (int i = 0; i < 300; ++i) line += "word ";
  Walk({line.c_str()});
  EXPECT_EQ(host.processEventsCount, 0);
  ctx.run.blnStartUpCompleted = true;
  Walk({line.c_str()});
  EXPECT_GT(host.processEventsCount, 0);
  EXPECT_EQ(Words(), (Counts{{"word", 600}}));
}

}  // namespace
}  // namespace wordtally
