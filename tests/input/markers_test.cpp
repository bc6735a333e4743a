// The markers of the line walk: character entities and comment markers.
#include "input/character_entities.h"
#include "input/comment_markers.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {
namespace {

TEST(CharacterEntityTest, RecognisesAndReplacesNamedAndNumericReferences) {
  for (const char* text : {"&amp;", "&eacute;", "&Zeta;", "&#160;", "&#x2014;", "&frac12;"}) {
    EXPECT_TRUE(IsCharacterEntity(text)) << text;
  }
  for (const char* text : {"&;", "&#;", "&#x;", "&amp", "amp;", "&1abc;", "&#12a;", "&am p;", ""}) {
    EXPECT_FALSE(IsCharacterEntity(text)) << text;
  }
  ExpectEach(InPlace(ReplaceCharacterEntities),
             {{"caf&eacute; &amp; cr&egrave;me", "caf\xE9 & cr\xE8me"}, {"&nbsp;x&#160;", " x "},
              {"&copy; 2024&#8212;now", "\xA9 2024\x97now"}, {"no entities", "no entities"},
              {"&Auml;&szlig;&yuml;&AElig;&THORN;&eth;", "\xC4\xDF\xFF\xC6\xDE\xF0"},
              {"&Oslash;&oslash;&Ccedil;&Yacute;", "\xD8\xF8\xC7\xDD"},
              // Unknown names, wrong case, a missing ";" and a lone "&" stay as they are.
              {"&foo; &AUML; &eacute x & y &", "&foo; &AUML; &eacute x & y &"},
              // One pass: the "&" that "&amp;" yields does not start another entity.
              {"&amp;eacute;", "&eacute;"}});
}

// The pairs in force, each as "start end;".
TEST(CommentMarkersTest, NamedSyntaxes) {
  const std::pair<const char*, const char*> cases[] = {
      {"C", "/* */;// ;"}, {"PHP", "/* */;// ;"}, {"HTML", "<!-- -->;"}, {"XML", "<!-- -->;"},
      {"Pascal", ""}};
  for (const auto& [name, markers] : cases) {
    const CommentMarkerPairs pairs = CommentSyntax(name);
    std::string shown;
    for (int i = 0; i < pairs.count; ++i) shown += pairs.start[i] + " " + pairs.end[i] + ";";
    EXPECT_EQ(shown, markers) << name;
  }
}

TEST(CommentMarkersTest, DetectorFindsStartMarkersAtThePosition) {
  const struct { const char* line; int32_t lngLP; int16_t pair; } cases[] = {
      {"ab /* x", 4, 0}, {"ab // x", 4, 1}, {"ab /x", 4, -1}, {"ab /* x", 3, -1}, {"ab", 9, -1}};
  for (const auto& c : cases) {
    CommentState state;
    EXPECT_EQ(DetectComment(CommentSyntax("C"), c.line, c.lngLP, state), c.pair) << c.line;
    EXPECT_EQ(state.startMarkerPending, c.pair >= 0) << c.line;
  }
}

// From lngLP, with the state a detected start marker or an earlier line left: the position after
// the comment, or beyond the line when the comment goes on.
TEST(CommentMarkersTest, SkipperStepsOverCommentsWithinAndAcrossLines) {
  const struct { const char* syntax; const char* line; int32_t lngLP; CommentState before;
                 int32_t after; int16_t withinAfter; } cases[] = {
      {"C", "ab /* cd */ ef ", 4, {0, true}, 12, -1},  // "*/" occupies positions 10 and 11
      {"C", "/*/ x */ y", 1, {0, true}, 9, -1},        // "*/" overlapping "/*" does not end it
      {"C", "ab /* cd ", 4, {0, true}, 10, 0},         // goes on in the next line
      {"C", "more text ", 1, {0, false}, 11, 0},
      {"C", "still */ ok", 1, {0, false}, 9, -1},
      {"C", "x // y */ z", 3, {1, true}, 12, -1},       // an empty end marker: ends with its line
      {"C", "no comment", 4, {-1, false}, 4, -1},
      {"HTML", "a --> b", 2, {1, false}, 2, -1},       // a pair the syntax lacks ends the comment
  };
  for (const auto& c : cases) {
    CommentState state = c.before;
    int32_t lngLP = c.lngLP;
    SkipComment(CommentSyntax(c.syntax), c.line, lngLP, state);
    EXPECT_EQ(lngLP, c.after) << c.line;
    EXPECT_EQ(state.intWithinComment, c.withinAfter) << c.line;
    EXPECT_FALSE(state.startMarkerPending) << c.line;
  }
}

}  // namespace
}  // namespace wordtally::testing
