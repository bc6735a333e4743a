#pragma once
// Vetting of an input file before its words are counted: existence, size, encoding (RTF, the
// Unicode forms, UTF-8), control characters and line-ending style, and the messages that tell the
// user why a file is refused.
#include <cstdint>
#include <string>

#include "input/text_rules.h"
#include "support/host.h"

namespace wordtally {

// Codes of DetectFileEncoding; ClassifyTextFile passes the negative ones and kProbeRtf on.
enum EncodingProbe : int16_t {
  kProbeEmptyName = -5,
  kProbeNotFound = -1,
  kProbeZeroLength = -2,
  kProbeOneToFourBytes = -4,
  kProbePermissionDenied = -3,
  kProbeOtherError = -9,
  kProbeUndecided = 0,
  kProbeUtf16LE = 1,
  kProbeUtf16BE = 2,
  kProbeUtf8 = 3,
  kProbeUtf32BE = 5,
  kProbeRtf = 6,
};

// Codes of ClassifyTextFile beyond the probe codes it passes on.
enum TextFileClass : int16_t {
  kClassNotText = 0,
  kClassCrLf = 1,  // also no line end in the sample, mixed line ends, and every UTF-8 file
  kClassLfOnly = 2,
  kClassCrOnly = 3,
  kClassOtherUnicode = 7,
};

// "txt", "log", "xml", "htm", "html", "shtm", "shtml", "xhtm", "xhtml", "csv", "prn".
bool HasTextExtension(const std::string& fileName);

// Byte-order marks, RTF, the "xml" start rules and, when checkCharsetHints is set and the
// extension is a text one, a search of the whole file for a UTF-8 charset or UTF-8 punctuation
// (where a parameter searchThreads is given, a large file is searched on that many threads).
// Under the modern rules a file of any name that is valid UTF-8 with a multi-byte sequence is
// UTF-8 too.
int16_t DetectFileEncoding(const std::string& fileName, bool checkCharsetHints = false,
                           TextRules rules = TextRules::Classic);

// Scans the first maxBytes bytes of an undecided file (under the modern rules, of a UTF-8 file
// too) for control characters (tab, form feed and backspace do not count) and line ends.
// firstControlChar starts at 32 and firstControlPos at 0; isUtf8 is only ever set, never cleared.
int16_t ClassifyTextFile(const std::string& fileName, int32_t maxBytes,
                         unsigned char& firstControlChar, int32_t& firstControlPos,
                         double tolerancePercent, double& controlPercent, bool& isUtf8,
                         bool checkCharsetHints = false, TextRules rules = TextRules::Classic,
                         int searchThreads = 1);

// Vets a file for counting and tells the user why it cannot be used. blnMacNoticeShown lives as
// long as the program: the CR-only notice is shown once per program run. Under the modern rules
// a file with Unix line ends passes at any size, without notices or questions.
bool CheckInputFile(Host& host, bool& blnMacNoticeShown, const std::string& fileName,
                    bool skipLineEndingChecks, bool& isUtf8, int16_t& classCode,
                    bool askBeforeSlowFile, TextRules rules = TextRules::Classic,
                    int searchThreads = 1);

// The UTF-8 verdict of CheckInputFile without its messages: what the window's UTF-8 box shows
// once the file is chosen.
bool IsDetectedAsUtf8(const std::string& fileName, TextRules rules, int searchThreads = 1);

// -1 no such file; 1 at least 10 bytes beginning with the zip signature 50 4B 03 04; else 0.
int16_t IsZipFile(const std::string& fileName);

// Existence and size of a chosen input file: sets the file-size label, tells the user about a
// missing or empty file, and makes the file's folder the current directory.
bool CheckInputFileExists(Host& host, const std::string& fileName);

// The message for a "docx" file that is not a zip archive.
inline constexpr const char* kNotDocxTitle = "Not a docx file";
void ShowNotDocxMessage(Host& host, const std::string& fileName);

}  // namespace wordtally
