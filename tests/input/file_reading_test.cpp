// Reading input files: text files line by line, and the text of docx files.
#include <zip.h>

#include <cerrno>
#include <iterator>

#include "input/docx_reader.h"
#include "input/line_reader.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {

using FileReadingTest = InputTest;
using Lines = std::vector<std::string>;

// Each text is read from memory and from a file in blocks of 16 bytes, the smallest, so that lines
// cross blocks: a CR ends one block and its LF begins the next, a line is longer than a block.
// A file that cannot be opened gives the run error number.
TEST_F(FileReadingTest, LineReaderEndsLinesAtEveryLineEndAndTellsOpenFailures) {
  const std::pair<std::string, Lines> texts[] = {
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}}, {"a\n", {"a"}}, {"\n\n", {"", ""}}, {"", {}},
      {"a\r\r\nb\n\rc", {"a", "", "b", "", "c"}},
      {std::string(15, 'a') + "\r\nbbb", {std::string(15, 'a'), "bbb"}},
      {"s\n" + std::string(100, 'x') + "\r\nt", {"s", std::string(100, 'x'), "t"}},
      // Line ends on either side of 16-byte steps.
      {std::string(16, 'a') + "\n" + std::string(31, 'b') + "\r" + std::string(32, 'c'),
       {std::string(16, 'a'), std::string(31, 'b'), std::string(32, 'c')}},
      {"one\rtwo\nthree\r\nfour\r\rfive\r\nsix\nseven\reight\r\n\r",
       {"one", "two", "three", "four", "", "five", "six", "seven", "eight", ""}}};
  for (const auto& [text, lines] : texts) {
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
  for (auto [osError, runError] : {std::pair{EACCES, 70}, {EPERM, 70}, {ENOENT, 53}, {EIO, 75}}) {
    EXPECT_EQ(RunErrorNumberOf(osError), runError);
  }
  std::filesystem::create_directory("folder.txt");
  const struct { std::string name; bool opens; int error; const char* description; } files[] = {
      {"missing.txt", false, 53, "File not found"}, {Write("empty.txt", ""), true, 0, ""},
      {"folder.txt", false, 75, "Path/File access error"},
      {Locked(Write("locked.txt", "secret")), false, 70, "Permission denied"}};
  LineReader reader;
  std::string_view line;
  EXPECT_FALSE(reader.NextLine(line) || reader.ErrorNumber() != 0);  // nothing before an opening
  for (const auto& c : files) {
    if (c.name.empty()) continue;
    const bool opened = reader.Open(c.name);
    EXPECT_EQ(std::tuple(opened, reader.NextLine(line), reader.ErrorNumber(),
                         reader.ErrorDescription()),
              std::tuple(c.opens, false, c.error, c.description)) << c.name;
  }
}

// Writes an archive holding the given parts, each stored without compression.
static std::string WriteArchive(const std::string& name,
                                const std::vector<std::pair<std::string, std::string>>& parts) {
  zip_t* archive = zip_open(name.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [part, content] : parts) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    const zip_int64_t index = zip_file_add(archive, part.c_str(), source, ZIP_FL_OVERWRITE);
    zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
  }
  EXPECT_EQ(zip_close(archive), 0);
  return name;
}

// An archive whose document part has this body.
static std::string WriteDocx(const std::string& name, const std::string& body) {
  return WriteArchive(name, {{"word/document.xml", "<w:document xmlns:w=\"http://schemas."
                              "openxmlformats.org/wordprocessingml/2006/main\"><w:body>" + body +
                              "</w:body></w:document>"}});
}

TEST_F(FileReadingTest, DocxReaderReadsTheDocumentPartOfGoodArchivesOnly) {
  using enum DocxStatus;
  const std::string as(500, 'a');
  std::ifstream in(WriteDocx("big.docx", "<w:p><w:r><w:t>" + as + "</w:t></w:r></w:p>"));
  const std::string good{std::istreambuf_iterator<char>(in), {}};
  std::string changed = good;  // a changed byte inside the stored document part fails its checksum
  changed[changed.find(as)] = 'b';
  WriteDocx("made.docx",
            "<w:p><w:pPr><w:tabs><w:tab w:val=\"left\" w:pos=\"720\"/></w:tabs></w:pPr><w:r>"
            "<w:t>caf\xC3\xA9 \xE2\x82\xAC \xE4\xB8\xAD</w:t><w:tab/><w:t>x</w:t><w:br/>"
            "<w:t xml:space=\"preserve\">y &amp; z </w:t><w:cr/><w:instrText>PAGE</w:instrText>"
            "</w:r></w:p><w:p><w:r><w:t><![CDATA[a<b]]></w:t></w:r></w:p><w:p/>");
  const struct { std::string name; DocxStatus status; AnsiString text = "";
                 int64_t limit = kMaxDocxDocumentBytes; int errorNumber = 0; } cases[] = {
      {WORDTALLY_TEST_DATA "/en_mammoth_tables.docx", Ok,
       "Above\nTop left\nTop right\nBottom left\nBottom right\nBelow\n"},
      {"made.docx", Ok, "caf\xE9 \x80 ?\tx\ny & z \n\na<b\n\n"},
      {"big.docx", Ok, as + "\n", 100000}, {"big.docx", TooBig, "", 400},
      {Write("zero.docx", ""), NotDocx}, {Write("text.docx", "Some words, no zip."), NotDocx},
      {Write("cut.docx", good.substr(0, good.size() - 10)), Damaged},
      {WriteArchive("nodoc.docx", {{"word/other.xml", "<a/>"}}), Damaged},
      {WriteArchive("badxml.docx", {{"word/document.xml", "<a><b></a>"}}), Damaged},
      {Write("crc.docx", changed), Damaged}, {"absent.docx", CannotOpen, "", 0, 53}};
  for (const auto& c : cases) {
    const DocxText result = ReadDocxText(c.name, c.limit);
    EXPECT_EQ(std::tuple(result.status, result.text, result.errorNumber),
              std::tuple(c.status, c.text, c.errorNumber)) << c.name;
  }
  EXPECT_EQ(DamagedDocxMessage("a.docx"), "Invalid checksum found when processing\r\na.docx");
  EXPECT_EQ(DocxTooBigMessage("a.docx"),
            "a.docx\r\nis too large to be scanned directly.\r\n\r\n"
            "Recommend saving it as a text file and\r\napplying this program to that file.");
}

}  // namespace wordtally::testing
