#include "engine/word_extraction.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
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
  EXPECT_TRUE(semicolon.endsAtSemicolon);
  EXPECT_FALSE(semicolon.endsAtComma);
  EXPECT_TRUE(ScanWordChars("x abc.", 3, false, "").endsAtFullStop);
  EXPECT_TRUE(ScanWordChars("ab\"", 1, false, "").endsAtDoubleQuote);
  EXPECT_TRUE(ScanWordChars("ab\t", 1, false, "").endsAtTab);
  EXPECT_TRUE(ScanWordChars("ab'", 1, false, "").endsAtApostrophe);
  EXPECT_TRUE(ScanWordChars("ab,", 1, false, "").endsAtComma);
  const WordCharRun atEnd = ScanWordChars("abc", 1, false, "");
  EXPECT_FALSE(atEnd.endsAtSemicolon || atEnd.endsAtFullStop || atEnd.endsAtDoubleQuote ||
               atEnd.endsAtTab || atEnd.endsAtApostrophe || atEnd.endsAtComma);

  // Long runs of letters with other word characters, and ends, on either side of 8-byte steps.
  const std::string mixed = "abcdefghij-klmnop\xE9qrs tuv";  // 10 + 1 + 6 + 1 + 3 characters
  const std::string as(70000, 'a');
  struct Case {
    std::string text;
    int32_t start;
    const char* extra;
    int32_t length;
  };
  for (const Case& c : {Case{"abc;def", 1, "", 3}, Case{"abc", 1, "", 3}, Case{"ab'c", 1, "'", 4},
                        Case{" abc", 1, "", 0}, Case{as, 1, "", 65000}, Case{as, 65001, "", 5000},
                        Case{mixed, 1, "-", 21}, Case{mixed, 1, "", 10}, Case{mixed, 12, "", 10},
                        Case{"ABCDEFGH[abc", 1, "", 8}, Case{"abcdefg@bc", 1, "", 7},
                        Case{"abcdefgh\xD7ijk", 1, "", 8},  // the multiplication sign
                        Case{"abcdefghijklmnop`", 1, "", 16},
                        Case{"abcdefghijklmnopq{", 1, "", 17}}) {
    EXPECT_EQ(ScanWordChars(c.text, c.start, false, c.extra).length, c.length)
        << c.text.substr(0, 20) << " from " << c.start;
  }
}

TEST(ShapeTest, RepeatedCharactersRomanNumeralsAndCleanLines) {
  for (const char* word : {"aaaa", "---", " zz "}) EXPECT_TRUE(IsRepeatedChar(word)) << word;
  for (const char* word : {"", "   ", "ab"}) EXPECT_FALSE(IsRepeatedChar(word)) << word;
  for (const char* word : {"I", "i", "DIM", "MID", "LIVID", "CIVIL", "vivid", "Dill", "cat"}) {
    EXPECT_FALSE(IsRomanNumeral(word, false)) << word;
  }
  for (const char* word : {"II", "IV", "XIV", "MCM", "xiv", "mix", "civic"}) {
    EXPECT_TRUE(IsRomanNumeral(word, false)) << word;
  }
  EXPECT_TRUE(IsRomanNumeral("XIV", true));
  EXPECT_FALSE(IsRomanNumeral("MCM", true));
  EXPECT_FALSE(IsRomanNumeral("LID", true));

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

class LineWalkTest : public WholeRunTest {
 protected:
  // The words counted from the lines, handed over as the run driver does (with one trailing
  // blank), into an empty store.
  Counts Walk(std::initializer_list<const char*> lines) {
    ctx.store.Reset();
    ctx.run.lngTotalNumOccurrences = ctx.run.lngNumWordsIgnored = 0;
    ctx.run.comment = {};
    LineWalker walker(ctx);
    for (const char* line : lines) {
      ctx.run.strLine = AnsiString(line) + " ";
      walker.WalkLine();
    }
    Counts counts;
    const auto records = ctx.store.WordList();
    for (int32_t i = 1; i <= ctx.store.lngNumWords(); ++i) {
      counts[records[i].Word] = records[i].Frequency;
    }
    return counts;
  }
};

TEST_F(LineWalkTest, ShortWordsCaseHyphensRomanNumeralsAndTheTotal) {
  EXPECT_EQ(Walk({"An apple of the I tree, and THE tree."}),
            (Counts{{"and", 1}, {"apple", 1}, {"the", 2}, {"tree", 2}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 6);
  EXPECT_EQ(Walk({"well-known -known known- --- aaa XIV mix Livid \x8Cuvre"}),
            (Counts{{"known", 2}, {"livid", 1}, {"uvre", 1}, {"well-known", 1}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 5);

  settings.chkCaseSignificant = 1;
  EXPECT_EQ(Walk({"The the THE"}), (Counts{{"THE", 1}, {"The", 1}, {"the", 1}}));
  settings.chkCaseSignificant = 0;
  settings.chkDropFinalS = 1;  // plurals after folding
  EXPECT_EQ(Walk({"MICE Cities"}), (Counts{{"city", 1}, {"mouse", 1}}));
}

TEST_F(LineWalkTest, ApostrophesAndNumerals) {
  settings.chkAllowWordsWithApostrophes = 1;
  // The typographic apostrophe, unlike "'", may begin a word.
  EXPECT_EQ(Walk({"'tis don't \x91quote\x92"}),
            (Counts{{"don't", 1}, {"tis", 1}, {"\x91quote", 1}}));
  settings.chkAllowWordsWithApostrophes = 0;
  EXPECT_EQ(Walk({"don't wasn't couldn't"}), (Counts{{"don", 1}}));

  settings.chkAllowWordsWithNumerals = 1;
  settings.chkIgnoreNoVowel = 0;
  EXPECT_EQ(Walk({"123\xD7" "456 abc123def 7\xF7" "89"}),
            (Counts{{"123", 1}, {"456", 1}, {"abc123def", 1}}));
  settings.chkAllowWordsWithNumerals = 0;
  EXPECT_EQ(Walk({"abc123def"}), (Counts{{"abc", 1}, {"def", 1}}));
}

TEST_F(LineWalkTest, CommentsAndMarkup) {
  EXPECT_EQ(Walk({"alpha /* beta", "gamma */ delta // epsilon */ omega", "zeta/*eta*/theta"}),
            (Counts{{"alpha", 1}, {"delta", 1}, {"theta", 1}, {"zeta", 1}}));
  EXPECT_EQ(ctx.run.comment.intWithinComment, -1);
  EXPECT_EQ(Walk({"open /* still", "inside"}), (Counts{{"open", 1}}));
  EXPECT_EQ(ctx.run.comment.intWithinComment, 0);

  settings.chkAllowCommentMarkers = 0;
  EXPECT_EQ(Walk({"alpha /* beta */ gamma"}), (Counts{{"alpha", 1}, {"beta", 1}, {"gamma", 1}}));
  settings.chkAllowCommentMarkers = 1;
  settings.txbStartComment = {"", "{"};
  settings.txbEndComment = {"", "}"};
  EXPECT_EQ(Walk({"alpha {beta} gamma /* delta */"}),
            (Counts{{"alpha", 1}, {"delta", 1}, {"gamma", 1}}));

  EXPECT_EQ(Walk({"one <!-- two --> three caf&eacute;"}),
            (Counts{{"caf", 1}, {"eacute", 1}, {"one", 1}, {"three", 1}}));
  ctx.run.blnCharacterEntitiesPossible = true;
  EXPECT_EQ(Walk({"caf&eacute; cr&egrave;me"}), (Counts{{"caf\xE9", 1}, {"cr\xE8me", 1}}));
}

TEST_F(LineWalkTest, ExcludedWordsStillCountInTheTotal) {
  settings.strWordsToIgnore = " the ";
  EXPECT_EQ(Walk({"the them The"}), (Counts{{"them", 1}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 3);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 2);

  // Reading common words goes straight to the store; the "C" markers apply all the same.
  ctx.run.blnReadingWords = true;
  settings.chkDropFinalS = 1;
  settings.chkAllowCommentMarkers = 0;
  settings.strWordsToIgnore = " trees ";
  EXPECT_EQ(Walk({"// heading line", "trees /* note */ couldn", "trees"}),
            (Counts{{"couldn", 1}, {"trees", 2}}));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 0);
}

TEST_F(LineWalkTest, StopsAfterTheWordAndGivesTurnsOnlyAfterStartUp) {
  ctx.run.blnStartUpCompleted = false;
  const std::string line = Repeated("word ", 300);
  EXPECT_EQ(Walk({line.c_str()}), (Counts{{"word", 300}}));
  EXPECT_EQ(host.processEventsCount, 0);
  ctx.run.blnStartUpCompleted = true;
  EXPECT_EQ(Walk({line.c_str()}), (Counts{{"word", 300}}));
  EXPECT_GT(host.processEventsCount, 0);

  ctx.run.blnStop = true;
  EXPECT_EQ(Walk({"alpha beta gamma"}), (Counts{{"alpha", 1}}));
}

}  // namespace
}  // namespace wordtally::testing
