// Reading input files: text files line by line, and the text of docx files.
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

#include <cerrno>
#include <iterator>

#include "input/docx_reader.h"
#include "input/line_reader.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {
namespace {

using FileReadingTest = InputTest;
using Lines = std::vector<std::string>;

// Each text is read from memory and from a file in blocks of 16 bytes, the smallest, so that lines
// cross blocks: a CR ends one block and its LF begins the next, a line is longer than a block.
TEST_F(FileReadingTest, EveryLineEndStyleEndsALineAlsoAcrossBlocks) {
  const std::pair<std::string, Lines> cases[] = {
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}}, {"a\n", {"a"}}, {"\n\n", {"", ""}}, {"", {}},
      {"a\r\r\nb\n\rc", {"a", "", "b", "", "c"}},
      {std::string(15, 'a') + "\r\nbbb", {std::string(15, 'a'), "bbb"}},
      {"s\n" + std::string(100, 'x') + "\r\nt", {"s", std::string(100, 'x'), "t"}},
      {"one\rtwo\nthree\r\nfour\rfive\r\nsix\nseven\reight\r\nnine\nten\r\n\releven\r\r",
       {"one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten", "", "eleven", ""}}};
  for (const auto& [text, lines] : cases) {
    LineReader fromText, fromFile(16);
    fromText.OpenText(text);
    ASSERT_TRUE(fromFile.Open(Write("f.txt", text)));
    for (LineReader* reader : {&fromText, &fromFile}) {
      Lines read;
      for (std::string_view line; reader->NextLine(line);) read.emplace_back(line);
      EXPECT_EQ(std::tuple(read, reader->Size(), reader->BytesConsumed(), reader->ErrorNumber()),
                std::tuple(lines, std::ssize(text), std::ssize(text), 0));
    }
  }
}

TEST_F(FileReadingTest, OpenFailuresCarryTheRunErrorNumber) {
  for (auto [osError, runError] : {std::pair{EACCES, 70}, {EPERM, 70}, {ENOENT, 53}, {EIO, 75}}) {
    EXPECT_EQ(RunErrorNumberOf(osError), runError);
  }
  ASSERT_EQ(::mkdir(Path("folder.txt").c_str(), 0700), 0);
  const std::string locked = Write("locked.txt", "secret");
  ASSERT_EQ(::chmod(locked.c_str(), 0), 0);
  const struct { std::string path; bool opens; int error; const char* description; } cases[] = {
      {Path("missing.txt"), false, 53, "File not found"}, {locked, false, 70, "Permission denied"},
      {Path("folder.txt"), false, 75, "Path/File access error"}, {Write("empty", ""), true, 0, ""}};
  for (const auto& c : cases) {
    if (c.error == 70 && ::geteuid() == 0) continue;  // the superuser may read any file
    LineReader reader;
    std::string_view line;
    const bool readBeforeOpen = reader.NextLine(line);  // nothing to read, and no error
    const int errorBeforeOpen = reader.ErrorNumber();
    const bool opened = reader.Open(c.path);
    EXPECT_EQ(std::tuple(readBeforeOpen, errorBeforeOpen, opened, reader.NextLine(line),
                         reader.ErrorNumber(), reader.ErrorDescription()),
              std::tuple(false, 0, c.opens, false, c.error, c.description)) << c.path;
  }
}

// Writes an archive holding the given parts, each stored without compression.
std::string WriteArchive(const std::string& path,
                         const std::vector<std::pair<std::string, std::string>>& parts) {
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  for (const auto& [name, content] : parts) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    const zip_int64_t index = zip_file_add(archive, name.c_str(), source, ZIP_FL_OVERWRITE);
    zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
  }
  EXPECT_EQ(zip_close(archive), 0);
  return path;
}

// An archive whose document part has this body.
std::string WriteDocx(const std::string& path, const std::string& body) {
  return WriteArchive(path, {{"word/document.xml",
                              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><w:document "
                              "xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
                              "<w:body>" + body + "</w:body></w:document>"}});
}

TEST_F(FileReadingTest, DocxReaderReadsTheDocumentPartOfGoodArchivesOnly) {
  using enum DocxStatus;
  const std::string big = WriteDocx(Path("big.docx"), "<w:p><w:r><w:t>" + std::string(500, 'a') + "</w:t></w:r></w:p>");
  std::ifstream in(big, std::ios::binary);
  const std::string good{std::istreambuf_iterator<char>(in), {}};
  std::string changed = good;  // a changed byte inside the stored document part fails its checksum
  changed[changed.find("aaaa")] = 'b';
  const std::string made = WriteDocx(
      Path("made.docx"),
      "<w:p><w:pPr><w:tabs><w:tab w:val=\"left\" w:pos=\"720\"/></w:tabs></w:pPr><w:r>"
      "<w:t>caf\xC3\xA9 \xE2\x82\xAC \xE4\xB8\xAD</w:t><w:tab/><w:t>x</w:t><w:br/>"
      "<w:t xml:space=\"preserve\">y &amp; z </w:t><w:cr/><w:instrText>PAGE</w:instrText></w:r>"
      "</w:p><w:p><w:r><w:t><![CDATA[a<b]]></w:t></w:r></w:p><w:p/>");
  const std::string data = WORDTALLY_TEST_DATA;
  const struct { std::string path; DocxStatus status; AnsiString text = "";
                 int64_t limit = kMaxDocxDocumentBytes; int errorNumber = 0; } cases[] = {
      {data + "/en_mammoth_tables.docx", Ok, "Above\nTop left\nTop right\nBottom left\nBottom right\nBelow\n"},
      {made, Ok, "caf\xE9 \x80 ?\tx\ny & z \n\na<b\n\n"},
      {big, Ok, std::string(500, 'a') + "\n", 100000}, {big, TooBig, "", 400},
      {Write("zero.docx", ""), NotDocx}, {Write("text.docx", "Some words, no zip."), NotDocx},
      {Write("half.docx", good.substr(0, good.size() / 2)), Damaged},
      {Write("cut.docx", good.substr(0, good.size() - 10)), Damaged},
      {WriteArchive(Path("nodoc.docx"), {{"word/other.xml", "<a/>"}}), Damaged},
      {WriteArchive(Path("badxml.docx"), {{"word/document.xml", "<a><b></a>"}}), Damaged},
      {Write("crc.docx", changed), Damaged}, {Path("absent.docx"), CannotOpen, "", 0, 53}};
  for (const auto& c : cases) {
    const DocxText result = ReadDocxText(c.path, c.limit);
    EXPECT_EQ(std::tuple(result.status, result.text, result.errorNumber),
              std::tuple(c.status, c.text, c.errorNumber)) << c.path;
  }
  const AnsiString sample = ReadDocxText(data + "/en_tika_testWORD.docx").text;
  EXPECT_TRUE(sample.starts_with("Sample Word Document Title\nAnd now for a subtitle\nMain Heading\n"));
  EXPECT_NE(sample.find("\nThis document includes text that is BOLD and ITALIC.\n"), std::string::npos);
  EXPECT_EQ(DamagedDocxMessage("a.docx"), "Invalid checksum found when processing\r\na.docx");
  EXPECT_EQ(DocxTooBigMessage("a.docx"), "a.docx\r\nis too large to be scanned directly.\r\n\r\n"
                                         "Recommend saving it as a text file and\r\napplying this program to that file.");
}

}  // namespace
}  // namespace wordtally::testing
