// Deeply nested documents: the element depth is limited, so that a small archive cannot make
// the parser keep millions of open elements.
#include <string>

#include <gtest/gtest.h>

#include "input/docx_reader.h"
#include "tests/common/zip_archive.h"
#include "tests/input/test_files.h"

namespace wordtally::testing {
namespace {

constexpr std::string_view kOpen =
    "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
    "<w:body><w:p><w:r><w:t>deep</w:t></w:r>";
constexpr std::string_view kClose = "</w:p></w:body></w:document>";

// The document with its paragraph's run wrapped in elements nested to depth in all.
std::string NestedDocument(int depth, bool closed) {
  const int wrappers = depth - 5;  // document, body, p, r and t are five levels
  std::string xml(kOpen.substr(0, kOpen.find("<w:r>")));
  for (int i = 0; i < wrappers; ++i) xml += "<w:x>";
  xml += "<w:r><w:t>deep</w:t></w:r>";
  if (!closed) return xml;
  for (int i = 0; i < wrappers; ++i) xml += "</w:x>";
  return xml + std::string(kClose);
}

TEST(DocxDepthTest, DeeperThanFourThousandIsDamaged) {
  TestFiles files;
  struct Case {
    int depth;
    bool closed;
    DocxStatus status;
  };
  for (const Case& c : {Case{4000, true, DocxStatus::Ok}, Case{4001, true, DocxStatus::Damaged},
                        Case{2'000'000, false, DocxStatus::Damaged}}) {
    SCOPED_TRACE(c.depth);
    const std::string xml = NestedDocument(c.depth, c.closed);
    const std::string path = files.Path("nested.docx");
    ASSERT_TRUE(WriteZipArchive(path, {{"word/document.xml", xml}}));
    const DocxText docx = ReadDocxText(path);
    EXPECT_EQ(docx.status, c.status);
    EXPECT_EQ(docx.text, c.status == DocxStatus::Ok ? "deep\n" : "");
  }
}

}  // namespace
}  // namespace wordtally::testing
