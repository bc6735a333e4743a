#include "input/comment_markers.h"

#include <gtest/gtest.h>

namespace wordtally {
namespace {

TEST(CommentSyntaxTest, NamedSyntaxes) {
  const CommentMarkerPairs c = CommentSyntax("C");
  EXPECT_EQ(c.count, 2);
  EXPECT_EQ(c.start[0] + c.end[0] + c.start[1] + c.end[1], "/**///");
  const CommentMarkerPairs html = CommentSyntax("HTML");
  EXPECT_EQ(html.count, 1);
  EXPECT_EQ(html.start[0] + html.end[0], "<!---->");
  EXPECT_EQ(CommentSyntax("XML").start[0], "<!--");
  EXPECT_EQ(CommentSyntax("PHP").count, 2);
  EXPECT_EQ(CommentSyntax("Pascal").count, 0);
}

TEST(CommentDetectorTest, FindsStartMarkersAtThePosition) {
  const CommentMarkerPairs c = CommentSyntax("C");
  CommentState state;
  EXPECT_EQ(DetectComment(c, "ab /* x", 4, state), 0);
  EXPECT_TRUE(state.startMarkerPending);
  state = {};
  EXPECT_EQ(DetectComment(c, "ab // x", 4, state), 1);
  EXPECT_EQ(DetectComment(c, "ab /x", 4, state), -1);
  EXPECT_EQ(DetectComment(c, "ab /* x", 3, state), -1);
  EXPECT_EQ(DetectComment(c, "ab", 9, state), -1);
}

TEST(CommentSkipperTest, SkipsWithinALineAndAcrossLines) {
  const CommentMarkerPairs c = CommentSyntax("C");
  CommentState state;
  // Skips from lngLP (detecting a comment there first when detect is set); returns the new lngLP.
  const auto skip = [&](const AnsiString& line, int32_t lngLP, bool detect = true) {
    if (detect) state.intWithinComment = DetectComment(c, line, lngLP, state);
    SkipComment(c, line, lngLP, state);
    return lngLP;
  };
  // "ab /* cd */ ef ": the end marker occupies positions 10 and 11.
  EXPECT_EQ(skip("ab /* cd */ ef ", 4), 12);
  EXPECT_EQ(state.intWithinComment, -1);
  // The "*/" that overlaps the start marker does not end the comment.
  EXPECT_EQ(skip("/*/ x */ y", 1), 9);
  // A comment that does not end in its line carries over to the next.
  EXPECT_EQ(skip("ab /* cd ", 4), 10);
  EXPECT_EQ(state.intWithinComment, 0);
  EXPECT_EQ(skip("more text ", 1, false), 11);
  EXPECT_EQ(state.intWithinComment, 0);
  EXPECT_EQ(skip("still */ ok", 1, false), 9);
  EXPECT_EQ(state.intWithinComment, -1);
  // An empty end marker ends the comment with its line.
  EXPECT_EQ(skip("x // y */ z", 3), 12);
  EXPECT_EQ(state.intWithinComment, -1);
}

}  // namespace
}  // namespace wordtally
