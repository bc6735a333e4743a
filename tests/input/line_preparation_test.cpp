#include "input/line_preparation.h"

#include <gtest/gtest.h>

#include <vector>

namespace wordtally {
namespace {

std::vector<AnsiString> Prepared(LinePreparer& preparer, AnsiString text) {
  LineReader reader;
  reader.OpenText(std::move(text));
  std::vector<AnsiString> lines;
  AnsiString line;
  while (preparer.NextLine(reader, line)) lines.push_back(line);
  return lines;
}

using Lines = std::vector<AnsiString>;

TEST(LinePreparerTest, HtmlHeadCharsetSwitchesToUtf8) {
  LinePreparer preparer("page.txt", false, false);
  Lines lines = Prepared(preparer,
                         "<!DOCTYPE html>\r\n<html><head>\r\n<title>Head words</title>\r\n"
                         "<meta charset=\"utf-8\">\r\n</head>\r\n"
                         "\t<body><p>Caf\xC3\xA9 \xE2\x80\x94 na\xC3\xAFve</p>  \r\n"
                         "</body></html>\r\n");
  EXPECT_EQ(preparer.Kind(), MarkupKind::Html);
  EXPECT_TRUE(preparer.IsUtf8());
  EXPECT_EQ(lines, (Lines{" ", "", "  Caf\xE9  --  na\xEFve ", "  "}));
}

TEST(LinePreparerTest, PlainTextAndDocxText) {
  LinePreparer ansi("notes.txt", false, false);
  EXPECT_EQ(Prepared(ansi, "  caf\xC3\xA9 <b>\n\x01\n"), (Lines{"caf\xC3\xA9 <b>", ""}));
  LinePreparer utf8("notes.txt", true, false);
  EXPECT_EQ(Prepared(utf8, "caf\xC3\xA9 \xE2\x80\x99"), (Lines{"caf\xE9 '"}));
  LinePreparer docx("letter.docx", true, true);
  EXPECT_EQ(Prepared(docx, "\xC3\xA9\n"), (Lines{"\xC3\xA9"}));
}

}  // namespace
}  // namespace wordtally
