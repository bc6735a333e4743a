// Word files written by different producers, read as a user would have them read.
#include <gtest/gtest.h>

#include "input/docx_reader.h"

namespace wordtally {
namespace {

TEST(DocxRealFiles, DataDescriptorsAndTextBoxesAreRead) {
  const struct {
    const char* file;
    AnsiString textStart;
  } kCases[] = {
      // Local headers that differ from the central directory, entries with data descriptors.
      {"en_docx4j_2010_glow_AlternateContent_dd_strict_refused.docx",
       "My first 2010 document.\n\n"},
      {"en_docx4j_NumberingIndents_dd_strict_refused.docx",
       "This document tests that the calculated effective indentation for each paragraph matches "
       "the value given in the text.\n<w:ind [expect]w:left=\"360\"[/expect] "},
      // The text box's sentence is stored twice; its fallback copy is not read.
      {"en_tika_testWORD_text_box.docx",
       "This text is inside of a text box in the body of the document.\n"
       "This text is directly in the body of the document.\n"},
  };
  for (const auto& [file, textStart] : kCases) {
    const DocxText docx = ReadDocxText(std::string(WORDTALLY_TEST_DATA "/") + file);
    EXPECT_EQ(docx.status, DocxStatus::Ok) << file;
    EXPECT_EQ(docx.text.substr(0, textStart.size()), textStart) << file;
  }
}

}  // namespace
}  // namespace wordtally
