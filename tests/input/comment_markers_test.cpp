#include "input/comment_markers.h"

#include <gtest/gtest.h>

namespace wordtally {
namespace {

TEST(CommentSyntaxTest, NamedSyntaxes) {
  const CommentMarkerPairs c = CommentSyntax("C");
  EXPECT_EQ(c.count, 2);
  EXPECT_EQ(c.start[0], "/*");
  EXPECT_EQ(c.end[0], "*/");
  EXPECT_EQ(c.start[1], "//");
  EXPECT_EQ(c.end[1], "");
  const CommentMarkerPairs html = CommentSyntax("HTML");
  EXPECT_EQ(html.count, 1);
  EXPECT_EQ(html.start[0], "<!--");
  EXPECT_EQ(html.end[0], "-->");
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
  int32_t lngLP = 4;
  // "ab /* cd */ ef ": the end marker occupies positions 10 and 11.
  state.intWithinComment = DetectComment(c, "ab /* cd */ ef ", lngLP, state);
  SkipComment(c, "ab /* cd */ ef ", lngLP, state);
  EXPECT_EQ(lngLP, 12);
  EXPECT_EQ(state.intWithinComment, -1);

  // The "*/" that overlaps the start marker does not end the comment.
  lngLP = 1;
  state.intWithinComment = DetectComment(c, "/*/ x */ y", lngLP, state);
  SkipComment(c, "/*/ x */ y", lngLP, state);
  EXPECT_EQ(lngLP, 9);

  // A comment that does not end in its line carries over to the next.
  lngLP = 4;
  state.intWithinComment = DetectComment(c, "ab /* cd ", lngLP, state);
  SkipComment(c, "ab /* cd ", lngLP, state);
  EXPECT_EQ(lngLP, 10);
  EXPECT_EQ(state.intWithinComment, 0);
  lngLP = 1;
  SkipComment(c, "more text ", lngLP, state);
  EXPECT_EQ(lngLP, 11);
  EXPECT_EQ(state.intWithinComment, 0);
  lngLP = 1;
  SkipComment(c, "still */ ok", lngLP, state);
  EXPECT_EQ(lngLP, 9);
  EXPECT_EQ(state.intWithinComment, -1);

  // An empty end marker ends the comment with its line.
  lngLP = 3;
  state.intWithinComment = DetectComment(c, "x // y */ z", lngLP, state);
  SkipComment(c, "x // y */ z", lngLP, state);
  EXPECT_EQ(lngLP, 12);
  EXPECT_EQ(state.intWithinComment, -1);
}

}  // namespace
}  // namespace wordtally
