// The lines of a text file as the counting run gets them: trimmed, decoded, without markup.
#include "input/decoding.h"
#include "input/line_preparation.h"
#include "input/markup.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {

using enum MarkupKind;
using Lines = std::vector<AnsiString>;

// Trimming of codes up to blank at both ends; the UTF-8 forms of Latin-1 in the order of the
// translation's steps; the punctuation table, unless the first sequence is unknown.
TEST(DecodingTest, TrimsAndTranslatesLatinOneAndPunctuation) {
  ExpectEach([](const AnsiString& line) { return AnsiString(TrimControlChars(line)); },
             {{"\t  word one \x01\r", "word one"}, {" \t \t ", ""}, {"", ""}, {"\xA0x", "\xA0x"}});
  ExpectEach([](const AnsiString& line) { return Utf8ToAnsi(line); },
             {{"caf\xC3\xA9", "caf\xE9"}, {"\xC2\xA0", "\xA0"}, {"a\xC2\x85z", "az"}, {"", ""},
              {"\xC2\xA9 \xC2\xA9 \xC2\xBF", "\xA9 \xA9 \xBF"}, {"\xC3\x80\xC3\xBF", "\xC0\xFF"},
              {"\xC4\x8D\xC4\x8D", "cc"}, {"plain ASCII", "plain ASCII"},
              // Other two-byte forms stay as their two characters. C3 83 makes the character C3,
              // which is not looked at again. Removing C2 85 joins C2 A0 behind the position
              // already searched: it stays. A removal in step 1 can form a C3 pair for step 2.
              {"\xC4\x81\xDF\xBF", "\xC4\x81\xDF\xBF"}, {"\xC3\x83\xA9", "\xC3\xA9"},
              {"\xC2\x85\xC2\xA0", "\xC2\xA0"}, {"\xC3\xC2\x85\xA9", "\xE9"},
              // Bad pairs and lone leads are stepped over.
              {"\xC2" "A\xC2\xA0", "\xC2" "A\xA0"}, {"\xC3(\xC3\xA9", "\xC3(\xE9"},
              {"\xC2\xC3\xA9", "\xC2\xE9"}, {"end\xC3", "end\xC3"}, {"end\xC2", "end\xC2"}});
  ExpectEach([](AnsiString line) { ReplaceUtf8Punctuation(line); return line; },
             // An unknown first sequence is only removed; an unknown later one stays.
             {{"a\xE2\x80\x94" "b", "a -- b"}, {"\xE2\x80\x93" "a\xE2\x80\xB0", "-a\xE2\x80\xB0"},
              {"\xE2\x80\x9Chi\xE2\x80\x9D \xE2\x80\x9E\xE2\x80\x9F", "\"hi\" \"\""},
              {"\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9A\xE2\x80\x9B", "''''"},
              {"\xE2\x80\x90\xE2\x80\x91\xE2\x80\x92\xE2\x80\x93", "----"},
              {"\xE2\x80\x95|\xE2\x80\x96|\xE2\x80\x97", "--|||\x89"}, {"\xE2\x80\xA2x", " . x"},
              {"wait\xE2\x80\xA6 \xE2\x80\xB9q\xE2\x80\xBA", "wait... <q>"},
              {"x\xE2\x80\xB0y\xE2\x80\x94", "xy\xE2\x80\x94"}, {"cut\xE2\x80", "cut"},
              {"\xE2\x80\xE2\x80\x94", "\x80\x94"}, {"no \xE2\x81\x80", "no \xE2\x81\x80"}});
}

// Trimmed, the HTML head skipped (once; a charset there switches to UTF-8), translated from
// UTF-8 unless the text came from a docx file, markup removed.
TEST(DecodingTest, LinePreparerTrimsSkipsTheHeadTranslatesAndFilters) {
  const struct { const char* fileName; bool isUtf8, isDocx; AnsiString text;
                 MarkupKind kind; bool utf8After; Lines lines; } cases[] = {
      {"page.txt", false, false,
       "<!DOCTYPE html>\r\n<html><head>\r\n<title>Head words</title>\r\n<meta charset=\"utf-8\">"
       "\r\n</head>\r\n\t<body><p>Caf\xC3\xA9 \xE2\x80\x94 na\xC3\xAFve</p>  \r\n</body></html>",
       Html, true, {" ", "", "  Caf\xE9  --  na\xEFve ", "  "}},
      {"x.htm", false, false, "<head><meta content=\"x; CharSet=UTF-8\"></head>a\xC3\xA9\n<head>b",
       Html, true, {"a\xE9", " b"}},
      {"a.html", false, false, "<head>\n<meta charset=\"iso-8859-1\">\nno end", Html, false, {""}},
      {"a.txt", false, false, "  caf\xC3\xA9 <b>\n\x01\n", None, false, {"caf\xC3\xA9 <b>", ""}},
      {"a.txt", true, false, "caf\xC3\xA9 \xE2\x80\x99", None, true, {"caf\xE9 '"}},
      {"letter.docx", true, true, "\xC3\xA9\n", None, true, {"\xC3\xA9"}}};
  for (const auto& c : cases) {
    LinePreparer preparer(c.fileName, c.isUtf8, c.isDocx);
    LineReader reader;
    reader.OpenText(c.text);
    Lines lines;
    for (std::string_view line; preparer.NextLine(reader, line);) lines.emplace_back(line);
    EXPECT_EQ(std::tuple(lines, preparer.Kind(), preparer.IsUtf8()),
              std::tuple(c.lines, c.kind, c.utf8After)) << c.text;
  }
}

// The kind comes from the extension, or from an HTML doctype in the first line.
TEST(MarkupTest, KindHeadAndFilteringAcrossLines) {
  const struct { const char* fileName; const char* firstLine; MarkupKind kind; } kinds[] = {
      {"page.HTML", "", Html}, {"a.htm", "", Html}, {"a.shtm", "", Html}, {"a.shtml", "", Html},
      {"a.xhtm", "", Html}, {"a.xhtml", "", Html}, {"feed.xml", "", Xml}, {"index.php", "", Php},
      {"a.txt", "", None}, {"a.txt", "  <!doctype Html>", Html}, {"a.txt", "<!DOCTYPE svg>", None},
      {"feed.xml", "<!DOCTYPE html>", Xml}};
  for (const auto& c : kinds) EXPECT_EQ(DetectMarkupKind(c.fileName, c.firstLine), c.kind);
  for (auto [line, opens] : {std::pair{"<html><HEAD>", true}, {"<head profile=\"x\">", true},
                             {"<header>top</header>", false}}) {
    EXPECT_EQ(OpensHtmlHead(line), opens) << line;
  }
  // Each tag, comment, CDATA section, script/style/noscript section and PHP block becomes one
  // blank; entities are decoded in one pass; an unterminated construct swallows the rest quietly.
  const struct { MarkupKind kind; Lines lines, filtered; bool insideAfter = false; } filtered[] = {
      {Html, {"<p>a <b>b</b></p>"}, {" a  b  "}}, {Html, {"<a t=\"x > y\" h='z>'>c</a>"}, {" c "}},
      {Html, {"a < b and c<", "no markup at all"}, {"a < b and c<", "no markup at all"}},
      {Html, {"before <img src=\"a\"", "alt=\"b > c\"> after"}, {"before  ", " after"}},
      {Html, {"<script>if (a<b) x = '<p>';</script>text"}, {"  text"}},
      {Html, {"<STYLE type=\"text/css\">", "p {}", "</style>after"}, {" ", "", " after"}},
      {Html, {"<noscript>Enable it</noscript>ok"}, {"  ok"}}, {Xml, {"<style>x</style>"}, {" x "}},
      {Html, {"<script src=\"x.js\"/>x"}, {" x"}}, {Html, {"<scripts>x</scripts>"}, {" x "}},
      // A quote opens a value only after "=".
      {Html, {"<p class=x don't>it</p><i a=\"x\"'>s</i>"}, {" it  s "}},
      {Html, {"a<!-- b <p> -->c"}, {"a c"}}, {Xml, {"x<![CDATA[ y <z> ]]>w"}, {"x w"}},
      {Html, {"a <!-- b", "hidden", "c --> d"}, {"a  ", "", " d"}},
      {Php, {"<?php echo '<b>';", "?>Text <?= $v ?>end"}, {" ", "Text  end"}},
      // Outside PHP "<?" opens a plain tag.
      {Xml, {"<?xml v=\"1\"?>doc"}, {" doc"}}, {Html, {"<p title=\"&amp;\">&lt;</p>"}, {" < "}},
      {Html, {"caf&eacute; &amp; &#233;&#xE9;&#XE9;"}, {"caf\xE9 & \xE9\xE9\xE9"}},
      {Html, {"&#8212;&#8364;&#x152;&#150;&#9;."}, {"\x97\x80\x8C\x96 ."}},
      // Not entities: left as text. A character outside the code page: "?".
      {Html, {"&#x2603; &bogus; &#; & x &;"}, {"? &bogus; &#; & x &;"}},
      {Html, {"a&b&amp;"}, {"a&b&"}}, {Html, {"&amp;amp; &amp;#233;"}, {"&amp; &#233;"}},
      {Html, {"text <!-- never closed", "more words", "<a href=\"x"}, {"text  ", "", ""}, true},
      {Html, {"word <a href=\"x", "y\" still in tag", "z"}, {"word  ", "", ""}, true}};
  for (const auto& c : filtered) {
    MarkupFilter filter(c.kind);
    Lines lines = c.lines;
    for (AnsiString& line : lines) filter.FilterLine(line);
    EXPECT_EQ(std::tuple(lines, filter.InsideMarkup()), std::tuple(c.filtered, c.insideAfter));
  }
}

}  // namespace wordtally::testing
