#include "input/docx_reader.h"

#include <expat.h>
#include <zip.h>

#include <array>
#include <memory>
#include <string_view>

#include "input/byte_file.h"
#include "input/file_vetting.h"

namespace wordtally {

namespace {

constexpr const char* kDocumentPart = "word/document.xml";
constexpr char kNamespaceSeparator = '|';
constexpr std::string_view kWordNamespaceMark = "wordprocessingml";
constexpr std::string_view kCompatibilityNamespaceMark = "markup-compatibility";
// Real documents nest a few dozen elements deep; expat keeps every open element in memory, so
// a small archive of millions of unclosed elements would otherwise take gigabytes.
constexpr int kMaxElementDepth = 4000;

struct ArchiveCloser {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct PartCloser {
  void operator()(zip_file_t* part) const { zip_fclose(part); }
};
struct ParserFreer {
  void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
};

// The local name of an element of the namespace whose URI holds mark, else "".
std::string_view LocalNameIn(const XML_Char* name, std::string_view mark) {
  std::string_view full(name);
  std::size_t separator = full.rfind(kNamespaceSeparator);
  if (separator == std::string_view::npos) return {};
  if (full.substr(0, separator).find(mark) == std::string_view::npos) return {};
  return full.substr(separator + 1);
}

// Collects the text of the document part: text runs, breaks, tabs and paragraph ends. The
// fallback branch of alternative content repeats what its chosen branch holds, so it is skipped.
// A document nested deeper than kMaxElementDepth stops the parser and is taken as damaged.
class DocumentText {
 public:
  DocumentText() : parser_(XML_ParserCreateNS(nullptr, kNamespaceSeparator)) {
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), &DocumentText::OnStart, &DocumentText::OnEnd);
    XML_SetCharacterDataHandler(parser_.get(), &DocumentText::OnText);
  }

  bool Feed(const char* data, int size, bool last) {
    return XML_Parse(parser_.get(), data, size, last ? XML_TRUE : XML_FALSE) == XML_STATUS_OK;
  }
  AnsiString Take() { return std::move(text_); }

 private:
  static void OnStart(void* self, const XML_Char* name, const XML_Char** /*attributes*/) {
    static_cast<DocumentText*>(self)->Start(name);
  }
  static void OnEnd(void* self, const XML_Char* name) {
    static_cast<DocumentText*>(self)->End(name);
  }
  static void OnText(void* self, const XML_Char* text, int length) {
    auto* me = static_cast<DocumentText*>(self);
    if (me->textDepth_ > 0 && me->fallbackDepth_ == 0) {
      me->text_ += Utf8ToAnsiText(std::string_view(text, static_cast<std::size_t>(length)));
    }
  }

  void Start(const XML_Char* name) {
    if (++depth_ > kMaxElementDepth) XML_StopParser(parser_.get(), XML_FALSE);
    if (LocalNameIn(name, kCompatibilityNamespaceMark) == "Fallback") ++fallbackDepth_;
    std::string_view local = LocalNameIn(name, kWordNamespaceMark);
    if (local == "r") {
      ++runDepth_;
    } else if (local == "t") {
      ++textDepth_;
    } else if (fallbackDepth_ == 0 && runDepth_ > 0) {
      if (local == "tab") text_ += '\t';
      if (local == "br" || local == "cr") text_ += '\n';
    }
  }

  void End(const XML_Char* name) {
    --depth_;
    if (LocalNameIn(name, kCompatibilityNamespaceMark) == "Fallback") --fallbackDepth_;
    std::string_view local = LocalNameIn(name, kWordNamespaceMark);
    if (local == "r") --runDepth_;
    if (local == "t") --textDepth_;
    if (local == "p" && fallbackDepth_ == 0) text_ += '\n';
  }

  std::unique_ptr<XML_ParserStruct, ParserFreer> parser_;
  AnsiString text_;
  int depth_ = 0;
  int runDepth_ = 0;
  int textDepth_ = 0;
  int fallbackDepth_ = 0;
};

DocxStatus InflateDocument(zip_t* archive, int64_t maxDocumentBytes, AnsiString& text) {
  zip_stat_t info;
  zip_stat_init(&info);
  if (zip_stat(archive, kDocumentPart, 0, &info) != 0) return DocxStatus::Damaged;
  if ((info.valid & ZIP_STAT_SIZE) && info.size > static_cast<zip_uint64_t>(maxDocumentBytes)) {
    return DocxStatus::TooBig;
  }
  std::unique_ptr<zip_file_t, PartCloser> part(zip_fopen(archive, kDocumentPart, 0));
  if (!part) return DocxStatus::Damaged;
  DocumentText document;
  std::array<char, 1 << 16> chunk;
  int64_t total = 0;
  for (;;) {
    zip_int64_t got = zip_fread(part.get(), chunk.data(), chunk.size());
    if (got < 0) return DocxStatus::Damaged;  // a bad checksum shows here, at the part's end
    if (got == 0) break;
    total += got;
    if (total > maxDocumentBytes) return DocxStatus::TooBig;  // the stored size was wrong
    if (!document.Feed(chunk.data(), static_cast<int>(got), false)) return DocxStatus::Damaged;
  }
  if (!document.Feed(nullptr, 0, true)) return DocxStatus::Damaged;
  text = document.Take();
  return DocxStatus::Ok;
}

}  // namespace

DocxText ReadDocxText(const std::string& fileName, int64_t maxDocumentBytes) {
  DocxText result;
  {
    ByteFile file;
    if (int osError = file.Open(fileName)) {
      result.status = DocxStatus::CannotOpen;
      result.errorNumber = RunErrorNumberOf(osError);
      return result;
    }
  }
  if (IsZipFile(fileName) != 1) {
    result.status = DocxStatus::NotDocx;
    return result;
  }
  // No strict consistency check: document libraries write local headers that differ from the
  // central directory in harmless ways (times, data descriptors). What matters is that the
  // document part inflates with a correct checksum, which reading it verifies.
  int zipError = 0;
  std::unique_ptr<zip_t, ArchiveCloser> archive(
      zip_open(fileName.c_str(), ZIP_RDONLY, &zipError));
  if (!archive) {
    result.status = DocxStatus::Damaged;
    return result;
  }
  result.status = InflateDocument(archive.get(), maxDocumentBytes, result.text);
  if (result.status != DocxStatus::Ok) result.text.clear();
  return result;
}

std::string DamagedDocxMessage(const std::string& fileName) {
  return "Invalid checksum found when processing\r\n" + fileName;
}

std::string DocxTooBigMessage(const std::string& fileName) {
  return fileName +
         "\r\nis too large to be scanned directly.\r\n\r\n"
         "Recommend saving it as a text file and\r\n"
         "applying this program to that file.";
}

}  // namespace wordtally
