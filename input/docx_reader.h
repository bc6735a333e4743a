#pragma once
// Extraction of the text of a docx file: the main document part "word/document.xml" is inflated
// and parsed as it streams out of the archive, without temporary files.
#include <cstdint>
#include <string>

#include "support/ansi_text.h"

namespace wordtally {

enum class DocxStatus {
  Ok,
  NotDocx,     // not a zip archive at all (no zip signature)
  Damaged,     // bad checksum, truncated or unreadable archive, no document part, bad XML,
               // elements nested thousands deep
  TooBig,      // the document part inflates to more than kMaxDocxDocumentBytes
  CannotOpen,  // the operating system refused the file (see errorNumber)
};

inline constexpr int64_t kMaxDocxDocumentBytes = int64_t{256} << 20;

struct DocxText {
  DocxStatus status = DocxStatus::Ok;
  int errorNumber = 0;  // for CannotOpen: 70 permission denied, 53 not found, 75 otherwise
  // The paragraphs as lines separated by "\n"; text runs are decoded into the code page
  // ("?" for characters outside it), breaks end a line, tabs stay tabs.
  AnsiString text;
};

DocxText ReadDocxText(const std::string& fileName,
                      int64_t maxDocumentBytes = kMaxDocxDocumentBytes);

// The driver's messages for a damaged archive and for a document too big to scan.
std::string DamagedDocxMessage(const std::string& fileName);
inline constexpr const char* kDamagedDocxTitle = "Error";
std::string DocxTooBigMessage(const std::string& fileName);
inline constexpr const char* kDocxTooBigTitle = "File too big";

}  // namespace wordtally
