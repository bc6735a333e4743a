#include "input/docx_reader.h"

#include <gtest/gtest.h>
#include <zip.h>

#include <string>

#include "tests/input/test_files.h"

namespace wordtally {
namespace {

using testing::ReadAll;
using testing::TestDataPath;
using testing::TestFiles;

constexpr const char* kDocumentOpen =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
    "<w:body>";
constexpr const char* kDocumentClose = "</w:body></w:document>";

// Writes an archive holding the given parts, each stored without compression.
std::string WriteArchive(const TestFiles& files, const std::string& name,
                         const std::vector<std::pair<std::string, std::string>>& parts) {
  std::string path = files.Path(name);
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  EXPECT_NE(archive, nullptr);
  for (const auto& [partName, content] : parts) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    zip_int64_t index = zip_file_add(archive, partName.c_str(), source, ZIP_FL_OVERWRITE);
    EXPECT_GE(index, 0);
    zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
  }
  EXPECT_EQ(zip_close(archive), 0);
  return path;
}

std::string WriteDocx(const TestFiles& files, const std::string& name, const std::string& body) {
  return WriteArchive(files, name,
                      {{"word/document.xml", kDocumentOpen + body + kDocumentClose}});
}

TEST(DocxReaderTest, ReadsRealDocuments) {
  DocxText tables = ReadDocxText(TestDataPath("en_mammoth_tables.docx"));
  ASSERT_EQ(tables.status, DocxStatus::Ok);
  EXPECT_EQ(tables.text, "Above\nTop left\nTop right\nBottom left\nBottom right\nBelow\n");

  DocxText sample = ReadDocxText(TestDataPath("en_tika_testWORD.docx"));
  ASSERT_EQ(sample.status, DocxStatus::Ok);
  EXPECT_TRUE(sample.text.starts_with(
      "Sample Word Document Title\nAnd now for a subtitle\nMain Heading\nHeading Level 1\n"))
      << sample.text;
  EXPECT_NE(sample.text.find("\nThis document includes text that is BOLD and ITALIC.\n"),
            std::string::npos);
}

TEST(DocxReaderTest, RunsBreaksTabsAndCharacters) {
  TestFiles files;
  std::string path = WriteDocx(
      files, "made.docx",
      "<w:p><w:pPr><w:tabs><w:tab w:val=\"left\" w:pos=\"720\"/></w:tabs></w:pPr>"
      "<w:r><w:t>caf\xC3\xA9 \xE2\x82\xAC \xE4\xB8\xAD</w:t><w:tab/><w:t>x</w:t><w:br/>"
      "<w:t xml:space=\"preserve\">y &amp; z </w:t><w:cr/><w:instrText>PAGE</w:instrText></w:r>"
      "</w:p><w:p><w:r><w:t><![CDATA[a<b]]></w:t></w:r></w:p><w:p/>");
  DocxText result = ReadDocxText(path);
  ASSERT_EQ(result.status, DocxStatus::Ok);
  EXPECT_EQ(result.text, "caf\xE9 \x80 ?\tx\ny & z \n\na<b\n\n");
}

TEST(DocxReaderTest, RefusesWhatIsNotAGoodArchive) {
  TestFiles files;
  EXPECT_EQ(ReadDocxText(files.Write("zero.docx", "")).status, DocxStatus::NotDocx);
  EXPECT_EQ(ReadDocxText(files.Write("text.docx", "Just some words, no zip.")).status,
            DocxStatus::NotDocx);
  DocxText missing = ReadDocxText(files.Path("absent.docx"));
  EXPECT_EQ(missing.status, DocxStatus::CannotOpen);
  EXPECT_EQ(missing.errorNumber, 53);

  // Cut archives, no document part, bad XML, and a changed byte inside the stored document part
  // (which fails its checksum): all damaged.
  const std::string real = ReadAll(TestDataPath("en_tika_testWORD.docx"));
  ASSERT_GT(real.size(), 1000u);
  std::string changed =
      ReadAll(WriteDocx(files, "good.docx", "<w:p><w:r><w:t>MARKERTEXT</w:t></w:r></w:p>"));
  ASSERT_NE(changed.find("MARKERTEXT"), std::string::npos);
  changed[changed.find("MARKERTEXT")] = 'N';
  for (const std::string& path :
       {files.Write("half.docx", real.substr(0, real.size() / 2)),
        files.Write("cut.docx", real.substr(0, real.size() - 10)),
        WriteArchive(files, "nodoc.docx", {{"word/other.xml", "<a/>"}}),
        WriteArchive(files, "badxml.docx", {{"word/document.xml", "<a><b></a>"}}),
        files.Write("crc.docx", changed)}) {
    EXPECT_EQ(ReadDocxText(path).status, DocxStatus::Damaged) << path;
  }
}

TEST(DocxReaderTest, DocumentPartSizeLimit) {
  TestFiles files;
  std::string body = "<w:p><w:r><w:t>" + std::string(500, 'a') + "</w:t></w:r></w:p>";
  std::string path = WriteDocx(files, "big.docx", body);
  EXPECT_EQ(ReadDocxText(path, 400).status, DocxStatus::TooBig);
  EXPECT_EQ(ReadDocxText(path, 100000).status, DocxStatus::Ok);
  EXPECT_EQ(DamagedDocxMessage("a.docx"), "Invalid checksum found when processing\r\na.docx");
  EXPECT_EQ(DocxTooBigMessage("a.docx"),
            "a.docx\r\nis too large to be scanned directly.\r\n\r\n"
            "Recommend saving it as a text file and\r\napplying this program to that file.");
}

}  // namespace
}  // namespace wordtally
