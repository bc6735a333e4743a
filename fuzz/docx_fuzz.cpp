// The docx reader: an input that begins like a zip archive is read as the docx file itself;
// any other input is taken as the document part and packed into a fresh archive first, so that
// both the archive and the document's XML are explored.
#include <unistd.h>

#include <string>

#include "input/docx_reader.h"
#include "support/file_utils.h"
#include "tests/common/zip_archive.h"

namespace {

const wordtally::TemporaryFolder& Folder() {
  static const wordtally::TemporaryFolder folder;
  return folder;
}

bool WriteBytes(const std::string& path, std::string_view bytes) {
  FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && written;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace wordtally;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::string path = Folder().Path() + "/input.docx";
  const bool written = bytes.starts_with("PK\x03\x04")
                           ? WriteBytes(path, bytes)
                           : testing::WriteZipArchive(path, "word/document.xml", bytes);
  if (!written) return 0;
  // A small limit, so that the too-big path is reached too.
  const DocxText docx = ReadDocxText(path, 1 << 16);
  if (docx.status != DocxStatus::Ok && !docx.text.empty()) __builtin_trap();
  return 0;
}
