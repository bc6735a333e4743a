// The markers of the line walk: character entities and comment markers.
#include "input/character_entities.h"
#include "input/comment_markers.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {

TEST(CharacterEntityTest, RecognisesAndReplacesNamedAndNumericReferences) {
  const std::pair<const char*, bool> entities[] = {
      {"&amp;", true}, {"&eacute;", true}, {"&Zeta;", true}, {"&#160;", true}, {"&#x2014;", true},
      {"&frac12;", true}, {"&;", false}, {"&#;", false}, {"&#x;", false}, {"&amp", false},
      {"amp;", false}, {"&1abc;", false}, {"&#12a;", false}, {"&am p;", false}, {"", false}};
  for (auto [text, isEntity] : entities) EXPECT_EQ(IsCharacterEntity(text), isEntity) << text;
  ExpectEach([](AnsiString line) { ReplaceCharacterEntities(line); return line; },
             {{"caf&eacute; &amp; cr&egrave;me", "caf\xE9 & cr\xE8me"}, {"&nbsp;x&#160;", " x "},
              {"&copy; 2024&#8212;now", "\xA9 2024\x97now"}, {"no entities", "no entities"},
              {"&Auml;&szlig;&yuml;&AElig;&THORN;&eth;", "\xC4\xDF\xFF\xC6\xDE\xF0"},
              {"&Oslash;&oslash;&Ccedil;&Yacute;", "\xD8\xF8\xC7\xDD"},
              // Unknown names, wrong case, a missing ";" and a lone "&" stay as they are; the "&"
              // that "&amp;" yields does not start another entity.
              {"&foo; &AUML; &eacute x & y &", "&foo; &AUML; &eacute x & y &"},
              {"&amp;eacute;", "&eacute;"}});
}

// The named syntaxes: "C" and "PHP" have /* */ and //, "XML" and "HTML" <!-- -->, others none.
// The detector finds a start marker at the 1-based position lngLP; the skipper goes on from there,
// with the state a detected start marker or an earlier line left, to the position after the
// comment, or beyond the line when the comment goes on.
TEST(CommentMarkersTest, DetectorAndSkipperWithinAndAcrossLines) {
  const struct { const char* syntax; const char* line; int32_t lngLP; int16_t pair; } found[] = {
      {"C", "ab /* x", 4, 0}, {"PHP", "ab // x", 4, 1}, {"C", "ab /x", 4, -1},
      {"C", "ab /* x", 3, -1}, {"C", "ab", 9, -1}, {"XML", "a <!-- b", 3, 0},
      {"HTML", "<!--", 1, 0}, {"HTML", "// x", 1, -1}, {"Pascal", "/* x", 1, -1}};
  for (const auto& c : found) {
    CommentState state;
    const int16_t pair = DetectComment(CommentSyntax(c.syntax), c.line, c.lngLP, state);
    EXPECT_EQ(std::tuple(pair, state.startMarkerPending), std::tuple(c.pair, c.pair >= 0));
  }
  const struct { const char* syntax; const char* line; int32_t lngLP; CommentState before;
                 int32_t after; int16_t withinAfter; } skipped[] = {
      {"C", "ab /* cd */ ef ", 4, {0, true}, 12, -1},  // "*/" occupies positions 10 and 11
      {"C", "/*/ x */ y", 1, {0, true}, 9, -1},        // "*/" overlapping "/*" does not end it
      {"C", "ab /* cd ", 4, {0, true}, 10, 0},         // goes on in the next line
      {"C", "more text ", 1, {0, false}, 11, 0}, {"C", "still */ ok", 1, {0, false}, 9, -1},
      {"PHP", "x // y */ z", 3, {1, true}, 12, -1},    // an empty end marker: ends with its line
      {"C", "no comment", 4, {-1, false}, 4, -1}, {"XML", "a --> b", 1, {0, false}, 6, -1},
      {"HTML", "a --> b", 2, {1, false}, 2, -1}};      // a pair the syntax lacks ends the comment
  for (const auto& c : skipped) {
    CommentState state = c.before;
    int32_t lngLP = c.lngLP;
    SkipComment(CommentSyntax(c.syntax), c.line, lngLP, state);
    EXPECT_EQ(std::tuple(lngLP, state.intWithinComment, state.startMarkerPending),
              std::tuple(c.after, c.withinAfter, false)) << c.line;
  }
}

}  // namespace wordtally::testing
