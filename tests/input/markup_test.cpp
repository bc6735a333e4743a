#include "input/markup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wordtally {
namespace {

std::vector<AnsiString> Filtered(MarkupKind kind, std::vector<AnsiString> lines) {
  MarkupFilter filter(kind);
  for (AnsiString& line : lines) filter.FilterLine(line);
  return lines;
}

AnsiString FilteredLine(AnsiString line, MarkupKind kind = MarkupKind::Html) {
  return Filtered(kind, {std::move(line)})[0];
}

using Lines = std::vector<AnsiString>;

TEST(MarkupKindTest, ComesFromTheExtensionOrAnHtmlDoctype) {
  EXPECT_EQ(MarkupKindOfFile("page.HTML"), MarkupKind::Html);
  for (const char* name : {"a.htm", "a.shtm", "a.shtml", "a.xhtm", "a.xhtml"}) {
    EXPECT_EQ(MarkupKindOfFile(name), MarkupKind::Html) << name;
  }
  EXPECT_EQ(MarkupKindOfFile("feed.xml"), MarkupKind::Xml);
  EXPECT_EQ(MarkupKindOfFile("index.php"), MarkupKind::Php);
  EXPECT_EQ(MarkupKindOfFile("notes.txt"), MarkupKind::None);
  EXPECT_EQ(DetectMarkupKind("notes.txt", "  <!doctype Html>"), MarkupKind::Html);
  EXPECT_EQ(DetectMarkupKind("notes.txt", "<!DOCTYPE svg>"), MarkupKind::None);
  EXPECT_EQ(DetectMarkupKind("feed.xml", "<!DOCTYPE html>"), MarkupKind::Xml);
  EXPECT_TRUE(OpensHtmlHead("<html><HEAD>"));
  EXPECT_TRUE(OpensHtmlHead("<head profile=\"x\">"));
  EXPECT_FALSE(OpensHtmlHead("<header>top</header>"));
}

TEST(MarkupFilterTest, ReplacesEachTagByOneBlank) {
  EXPECT_EQ(FilteredLine("<p>Hello <b>world</b></p>"), " Hello  world  ");
  EXPECT_EQ(FilteredLine("<a title=\"x > y\" href='z>'>link</a>"), " link ");
  EXPECT_EQ(FilteredLine("<p class=x don't>it</p>"), " it ");
  EXPECT_EQ(FilteredLine("a < b and c<"), "a < b and c<");
  EXPECT_EQ(FilteredLine("no markup at all"), "no markup at all");
  EXPECT_EQ(Filtered(MarkupKind::Html, {"before <img src=\"a\"", "alt=\"b > c\"> after"}),
            (Lines{"before  ", " after"}));
}

TEST(MarkupFilterTest, SkipsScriptStyleAndNoscriptContents) {
  EXPECT_EQ(FilteredLine("<script>if (a<b) x = '<p>';</script>text"), "  text");
  EXPECT_EQ(Filtered(MarkupKind::Html,
                     {"<STYLE type=\"text/css\">", "p { color: red }", "</style>after"}),
            (Lines{" ", "", " after"}));
  EXPECT_EQ(FilteredLine("<noscript>Enable it</noscript>ok"), "  ok");
  EXPECT_EQ(FilteredLine("<script src=\"x.js\"/>shown"), " shown");
  EXPECT_EQ(FilteredLine("<scripts>shown</scripts>"), " shown ");
  // In XML a style element is just an element.
  EXPECT_EQ(FilteredLine("<style>shown</style>", MarkupKind::Xml), " shown ");
}

TEST(MarkupFilterTest, SkipsCommentsCdataAndPhpCode) {
  EXPECT_EQ(FilteredLine("a<!-- b <p> -->c"), "a c");
  EXPECT_EQ(Filtered(MarkupKind::Html, {"a <!-- b", "hidden", "c --> d"}),
            (Lines{"a  ", "", " d"}));
  EXPECT_EQ(FilteredLine("x<![CDATA[ y <z> ]]>w", MarkupKind::Xml), "x w");
  EXPECT_EQ(Filtered(MarkupKind::Php, {"<?php echo '<b>';", "?>Text <?= $v ?>end"}),
            (Lines{" ", "Text  end"}));
  // Outside PHP files "<?" opens an ordinary tag.
  EXPECT_EQ(FilteredLine("<?xml version=\"1.0\"?>doc", MarkupKind::Xml), " doc");
}

TEST(MarkupFilterTest, DecodesEntities) {
  EXPECT_EQ(FilteredLine("caf&eacute; &amp; &#233;&#xE9;&#XE9;"), "caf\xE9 & \xE9\xE9\xE9");
  EXPECT_EQ(FilteredLine("&#8212;&#8364;&#x152;&#150;&#9;."), "\x97\x80\x8C\x96 .");
  // Not entities: left as text. A character outside the code page: "?".
  EXPECT_EQ(FilteredLine("&#x2603; &bogus; &#; & x &;"), "? &bogus; &#; & x &;");
  EXPECT_EQ(FilteredLine("a&b&amp;"), "a&b&");
  // One pass: the "&" made from "&amp;" does not start another entity.
  EXPECT_EQ(FilteredLine("&amp;amp; &amp;#233;"), "&amp; &#233;");
  EXPECT_EQ(FilteredLine("<p title=\"&amp;\">&lt;</p>"), " < ");
}

TEST(MarkupFilterTest, UnterminatedConstructsSwallowTheRestQuietly) {
  MarkupFilter filter(MarkupKind::Html);
  Lines lines = {"text <!-- never closed", "more words", "<a href=\"x"};
  for (AnsiString& line : lines) filter.FilterLine(line);
  EXPECT_EQ(lines, (Lines{"text  ", "", ""}));
  EXPECT_TRUE(filter.InsideMarkup());

  MarkupFilter tag(MarkupKind::Html);
  Lines open = {"word <a href=\"x", "y\" still in tag", "z"};
  for (AnsiString& line : open) tag.FilterLine(line);
  EXPECT_EQ(open, (Lines{"word  ", "", ""}));
  EXPECT_TRUE(tag.InsideMarkup());
}

}  // namespace
}  // namespace wordtally
