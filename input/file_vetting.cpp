#include "input/file_vetting.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <limits>
#include <mutex>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <vector>

#include "input/byte_file.h"
#include "input/text_search.h"
#include "input/utf8_validator.h"
#include "support/file_utils.h"
#include "support/number_format.h"

namespace wordtally {

namespace {

constexpr int32_t kSampleBytes = 16384;
constexpr int64_t kSlowUnixFileBytes = 256000;
constexpr int64_t kRefusedUnixFileBytes = 512000;
constexpr int64_t kClipboardAdviceBelowBytes = 102400;
constexpr double kClipboardAdviceBelowPercent = 9;
const std::string kNewLine = "\r\n";

int16_t ProbeCodeOfOsError(int osError) {
  return (osError == EACCES || osError == EPERM) ? kProbePermissionDenied : kProbeOtherError;
}

// A charset declaration or the UTF-8 lead of the general punctuation block ending among the bytes
// of the file from begin up to end (a negative end: up to the file's end); nothing when reading
// failed. Neither holds a line break, so the bytes are searched in large blocks rather than line
// by line; each block starts with the bytes before it, so that no hint is cut in two.
std::optional<bool> SearchUtf8HintIn(const ByteFile& file, int64_t begin, int64_t end) {
  constexpr std::size_t kBlock = 1 << 20;
  constexpr int64_t kOverlap = 16;  // longer than the longest hint, charset="UTF-8"
  int64_t at = std::max<int64_t>(0, begin - kOverlap);
  const int64_t last = end < 0 ? std::numeric_limits<int64_t>::max() : end;
  std::string window(kOverlap + BlockSizeFor(std::min(last, file.Size()) - at, kBlock), '\0');
  const std::size_t block = window.size() - kOverlap;
  std::size_t kept = 0;
  while (at < last) {
    const auto wanted = static_cast<std::size_t>(std::min<int64_t>(block, last - at));
    const std::ptrdiff_t got = file.ReadAt(window.data() + kept, wanted, at);
    if (got < 0) return std::nullopt;
    if (got == 0) return false;
    at += got;
    const std::string_view text(window.data(), kept + static_cast<std::size_t>(got));
    if (DeclaresUtf8Charset(text) || FindBytePair(text, '\xE2', '\x80') != std::string_view::npos) {
      return true;
    }
    if (static_cast<std::size_t>(got) < wanted) return false;  // a short read is the end
    kept = std::min<std::size_t>(kOverlap, text.size());
    std::memmove(window.data(), text.data() + text.size() - kept, kept);
  }
  return false;
}

// SearchUtf8HintIn over the whole file. A large file is cut into parts searched side by side on up
// to threads threads; the verdict is the one a search from the start would give, which ends at
// the first hint or read failure.
std::optional<bool> SearchUtf8Hint(const ByteFile& file, int threads) {
  constexpr int64_t kLeastPart = int64_t{4} << 20;  // a smaller part is not worth a thread
  const auto parts = static_cast<int>(
      std::clamp<int64_t>(file.Size() / kLeastPart, 1, std::max(threads, 1)));
  const int64_t share = file.Size() / parts;
  std::vector<std::optional<bool>> found(static_cast<std::size_t>(parts));
  std::vector<std::exception_ptr> failed(found.size());
  const auto search = [&](int part) {
    try {
      found[part] = SearchUtf8HintIn(file, part * share, part + 1 == parts ? -1 : (part + 1) * share);
    } catch (...) {
      failed[part] = std::current_exception();
    }
  };
  {
    std::vector<std::jthread> helpers;
    for (int part = 1; part < parts; ++part) {
      try {
        helpers.emplace_back(search, part);
      } catch (const std::system_error&) {
        search(part);  // no thread to be had: searched here
      }
    }
    search(0);
  }
  for (std::size_t part = 0; part < found.size(); ++part) {
    if (failed[part]) std::rethrow_exception(failed[part]);
    if (!found[part] || *found[part]) return found[part];
  }
  return false;
}

// SearchUtf8Hint, with a read failure counted as no hint. The search reads the whole file, and a
// file is often vetted twice in a row (the command line sets the UTF-8 box from it before the run
// vets it, the window when the file is chosen and when it is counted): the last verdict is kept
// with the identity of the file state it was made for, which any write to the file changes.
bool HasUtf8Hint(const ByteFile& file, int threads) {
  static std::mutex mutex;
  static FileIdentity searched;
  static bool verdict = false;
  const FileIdentity identity = file.Identity();
  if (identity != FileIdentity{}) {
    const std::lock_guard lock(mutex);
    if (identity == searched) return verdict;
  }
  const std::optional<bool> found = SearchUtf8Hint(file, threads);
  if (found && identity != FileIdentity{}) {
    const std::lock_guard lock(mutex);
    searched = identity;
    verdict = *found;
  }
  return found.value_or(false);
}

// Valid UTF-8 throughout, with at least one multi-byte sequence. A read failure counts as no.
bool IsMultiByteUtf8File(ByteFile& file) {
  constexpr std::size_t kBlock = 1 << 20;
  if (file.Seek(0) != 0) return false;
  std::string block(BlockSizeFor(file.Size(), kBlock), '\0');
  Utf8Validator validator;
  for (;;) {
    const std::ptrdiff_t got = file.Read(block.data(), block.size());
    if (got < 0) return false;
    if (got == 0) return validator.IsMultiByteUtf8();
    if (!validator.Feed(std::string_view(block.data(), static_cast<std::size_t>(got)))) {
      return false;
    }
  }
}

int16_t ProbeByteOrderMark(const unsigned char* b) {
  if (b[0] == 0xFF && b[1] == 0xFE) return kProbeUtf16LE;
  if (b[0] == 0xFE && b[1] == 0xFF) return kProbeUtf16BE;
  if (b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF) return kProbeUtf8;
  if (b[0] == 0x00 && b[1] == 0x00 && b[2] == 0xFE && b[3] == 0xFF) return kProbeUtf32BE;
  return kProbeUndecided;
}

// Every "xml" file that begins with "<" is taken as UTF-8 without looking further.
int16_t ProbeXmlStart(const unsigned char* b) {
  if (b[0] == '<') return b[1] != 0 ? kProbeUtf8 : kProbeUtf16LE;
  if (b[0] == 0 && b[1] == '<') return kProbeUtf16BE;
  return kProbeUndecided;
}

bool IsCountedControlChar(unsigned char c) {
  return c < 32 && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != '\b';
}

void ShowProbeFailure(Host& host, const std::string& name, int16_t code) {
  std::string text;
  switch (code) {
    case kProbeNotFound: text = "File " + name + " not found."; break;
    case kProbeZeroLength: text = "File " + name + " is zero-length."; break;
    case kProbePermissionDenied:
      text = "File " + name + kNewLine + " cannot be opened (permission denied).";
      break;
    case kProbeOneToFourBytes: text = "File " + name + kNewLine + "contains only from 1 to 4 bytes."; break;
    case kProbeRtf: text = "File " + name + kNewLine + "is an RTF file."; break;
    case kClassOtherUnicode:
      text = "File " + name + kNewLine + "is a Unicode file but not UTF-8 encoded.";
      break;
    default: text = "File " + name + kNewLine + "cannot be opened."; break;
  }
  Tell(host, "Fatal error", text, MessageIcon::Information);
}

void ShowNotTextFile(Host& host, const std::string& name, double controlPercent,
                     int64_t fileLength) {
  std::string text = name + kNewLine + "is not an ANSI or UTF-8 encoded text file.";
  if (controlPercent > 0) text += kNewLine + "It appears to be a binary file.";
  if (controlPercent < kClipboardAdviceBelowPercent && fileLength > 0 &&
      fileLength < kClipboardAdviceBelowBytes) {
    text += kNewLine + kNewLine +
            "You could try reading it using its associated application, then copying the text "
            "and pasting it into the textbox (then copy it to the clipboard and select "
            "'Clipboard' as the source).";
  }
  Tell(host, "Not a text file", text, MessageIcon::Information);
}

void ShowMacNotice(Host& host, const std::string& name) {
  Inform(host, "This is a Mac-style text file",
         "File " + name + kNewLine + "has Macintosh-type line endings (CR)." + kNewLine +
             kNewLine + "You might wish to use a program such as Notepad++" + kNewLine +
             "to convert the line endings to Windows-type (CR+LF).");
}

// LF-only files are slow to read line by line on the desktop: large ones need consent, very
// large ones are refused.
bool CheckUnixFile(Host& host, const std::string& name, int64_t fileLength, int16_t& classCode,
                   bool askBeforeSlowFile) {
  if (fileLength <= kSlowUnixFileBytes) return true;
  std::string text = "File " + name + kNewLine + "has Unix-type line endings (LF)." + kNewLine +
                     kNewLine + "The size of this file is " + FormatFileSize(fileLength, 2) + kNewLine;
  if (fileLength > kRefusedUnixFileBytes) {
    text += "so processing of this file would take a long time." + kNewLine + kNewLine +
            "You can process this file by first using a program such as Notepad++" + kNewLine +
            "to convert the line endings to Windows-type (CR+LF).";
    Tell(host, "Cannot process this file", text, MessageIcon::Information);
    classCode = kClassNotText;
    return false;
  }
  text += "so processing of this file might be rather slow." + kNewLine + kNewLine +
          "It is advisable to use a program such as Notepad++" + kNewLine +
          "to convert the line endings to Windows-type (CR+LF).";
  if (!askBeforeSlowFile) {
    Inform(host, "This is a Unix-style file", text);
    return true;
  }
  const std::string title = "This is a Unix-style text file";
  text += kNewLine + kNewLine + "Do you wish to continue processing this file?";
  Answer answer = host.ShowMessage(
      {title, text, MessageIcon::Information, MessageButtons::YesNo, Answer::No});
  if (answer == Answer::Yes) return true;
  Tell(host, title, "Operation canceled.", MessageIcon::None);
  classCode = kClassNotText;
  return false;
}

// Reads the first maxBytes bytes of a file: 0, or a negative probe code when it cannot be read.
int16_t ReadSample(ByteFile& file, int32_t maxBytes, std::string& sample) {
  if (int osError = file.Seek(0)) return ProbeCodeOfOsError(osError);
  int64_t n = std::min<int64_t>(file.Size(), std::max<int32_t>(maxBytes, 0));
  if (n <= 0) return kProbeZeroLength;
  sample.resize(static_cast<std::size_t>(n));
  std::ptrdiff_t got = file.Read(sample.data(), sample.size());
  if (got < 0) return ProbeCodeOfOsError(file.LastError());
  if (got == 0) return kProbeZeroLength;
  sample.resize(static_cast<std::size_t>(got));
  return 0;
}

int16_t LineEndClass(bool crSeen, bool lfSeen) {
  if (crSeen && lfSeen) return kClassCrLf;
  if (crSeen) return kClassCrOnly;
  if (lfSeen) return kClassLfOnly;
  return kClassCrLf;
}

// Without an early exit, so that the compiler can test many bytes at once.
bool HasCountedControlChar(std::string_view sample) {
  bool found = false;
  for (const char c : sample) found |= IsCountedControlChar(static_cast<unsigned char>(c));
  return found;
}

// The class of a sample by its control characters (tab, form feed and backspace do not count)
// and its line ends.
int16_t ClassifySample(std::string_view sample, int32_t maxBytes, unsigned char& firstControlChar,
                       int32_t& firstControlPos, double tolerancePercent, double& controlPercent) {
  // The usual text sample holds no counted control character: a share of 0, which passes no
  // tolerance (none is negative), leaves the line ends to decide.
  if (!HasCountedControlChar(sample)) {
    controlPercent = 0;
    return LineEndClass(sample.find('\r') != std::string_view::npos,
                        sample.find('\n') != std::string_view::npos);
  }
  bool lfSeen = false;
  bool crSeen = false;
  int64_t count = 0;
  const int64_t n = static_cast<int64_t>(sample.size());
  for (int64_t i = 1; i <= n; ++i) {
    auto c = static_cast<unsigned char>(sample[i - 1]);
    if (c == '\n') {
      lfSeen = true;
    } else if (c == '\r') {
      crSeen = true;
    } else if (IsCountedControlChar(c)) {
      if (count++ == 0) {
        firstControlChar = c;
        firstControlPos = static_cast<int32_t>(i);
      }
    }
    // Past a fifth of the sample size the share so far decides a binary file early.
    if (i * 5 > maxBytes) {
      controlPercent = static_cast<double>(count) * 100 / static_cast<double>(i);
      if (controlPercent > 10 * tolerancePercent) return kClassNotText;
    }
  }
  controlPercent = count == 0 ? 0 : static_cast<double>(count) * 100 / static_cast<double>(n);
  if (controlPercent > tolerancePercent) return kClassNotText;
  return LineEndClass(crSeen, lfSeen);
}

// DetectFileEncoding on file, which it opens and leaves open for ClassifyTextFile's sample: the
// file is opened once for all its checks.
int16_t OpenAndDetect(ByteFile& file, const std::string& fileName, bool checkCharsetHints,
                      TextRules rules, int searchThreads) {
  if (fileName.empty()) return kProbeEmptyName;
  if (!FileExists(fileName)) return kProbeNotFound;
  std::array<unsigned char, 5> b{};
  if (int osError = file.Open(fileName)) return ProbeCodeOfOsError(osError);
  if (file.Size() == 0) return kProbeZeroLength;
  if (file.Size() < 5) return kProbeOneToFourBytes;
  std::ptrdiff_t got = file.Read(reinterpret_cast<char*>(b.data()), b.size());
  if (got < 0) return ProbeCodeOfOsError(file.LastError());
  if (got < 5) return kProbeOtherError;
  if (std::memcmp(b.data(), "{\\rtf", 5) == 0) return kProbeRtf;
  int16_t code = ProbeByteOrderMark(b.data());
  if (code == kProbeUndecided && LowerExtension(fileName) == "xml") code = ProbeXmlStart(b.data());
  if (code == kProbeUndecided && checkCharsetHints && HasTextExtension(fileName) &&
      HasUtf8Hint(file, searchThreads)) {
    code = kProbeUtf8;
  }
  if (code == kProbeUndecided && rules == TextRules::Modern && IsMultiByteUtf8File(file)) {
    code = kProbeUtf8;
  }
  return code;
}

void MakeCurrentDirectory(const std::string& folder) {
  if (folder.empty() || !FolderExists(folder)) return;
  std::error_code ignored;
  std::filesystem::current_path(folder, ignored);
}

}  // namespace

bool HasTextExtension(const std::string& fileName) {
  static constexpr std::array<std::string_view, 11> kTextExtensions = {
      "txt", "log", "xml", "htm", "html", "shtm", "shtml", "xhtm", "xhtml", "csv", "prn"};
  std::string extension = LowerExtension(fileName);
  for (std::string_view known : kTextExtensions) {
    if (extension == known) return true;
  }
  return false;
}


int16_t DetectFileEncoding(const std::string& fileName, bool checkCharsetHints, TextRules rules) {
  ByteFile file;
  return OpenAndDetect(file, fileName, checkCharsetHints, rules, 1);
}

int16_t ClassifyTextFile(const std::string& fileName, int32_t maxBytes,
                         unsigned char& firstControlChar, int32_t& firstControlPos,
                         double tolerancePercent, double& controlPercent, bool& isUtf8,
                         bool checkCharsetHints, TextRules rules, int searchThreads) {
  firstControlChar = ' ';
  firstControlPos = 0;
  ByteFile file;
  int16_t probe = OpenAndDetect(file, fileName, checkCharsetHints, rules, searchThreads);
  if (probe < 0 || probe == kProbeRtf) return probe;
  if (probe == kProbeUtf8 && rules == TextRules::Classic) {
    isUtf8 = true;
    return kClassCrLf;
  }
  if (probe != kProbeUndecided && probe != kProbeUtf8) return kClassOtherUnicode;

  controlPercent = 0;
  std::string sample;
  if (int16_t failure = ReadSample(file, maxBytes, sample)) return failure;
  const int16_t verdict = ClassifySample(sample, maxBytes, firstControlChar, firstControlPos,
                                         tolerancePercent, controlPercent);
  // Under the modern rules a UTF-8 file is scanned too, but its line ends decide nothing.
  if (probe == kProbeUtf8 && verdict > kClassNotText) {
    isUtf8 = true;
    return kClassCrLf;
  }
  return verdict;
}

bool CheckInputFile(Host& host, bool& blnMacNoticeShown, const std::string& fileName,
                    bool skipLineEndingChecks, bool& isUtf8, int16_t& classCode,
                    bool askBeforeSlowFile, TextRules rules, int searchThreads) {
  host.SetCaption(Control::Status, "");
  unsigned char firstControlChar = ' ';
  int32_t firstControlPos = 0;
  double controlPercent = 0;
  classCode = ClassifyTextFile(fileName, kSampleBytes, firstControlChar, firstControlPos, 0,
                               controlPercent, isUtf8, true, rules, searchThreads);
  if (classCode == kProbeEmptyName) return false;
  if (classCode < 0 || classCode == kProbeRtf || classCode == kClassOtherUnicode) {
    ShowProbeFailure(host, fileName, classCode);
    return false;
  }
  if (classCode == kClassNotText) {
    ShowNotTextFile(host, fileName, controlPercent, FileSize(fileName));
    return false;
  }
  if (skipLineEndingChecks || classCode == kClassCrLf) return true;
  if (classCode == kClassLfOnly && rules == TextRules::Modern) return true;
  if (classCode == kClassCrOnly) {
    if (!blnMacNoticeShown) {
      blnMacNoticeShown = true;
      ShowMacNotice(host, fileName);
    }
    return true;
  }
  return CheckUnixFile(host, fileName, FileSize(fileName), classCode, askBeforeSlowFile);
}

bool IsDetectedAsUtf8(const std::string& fileName, TextRules rules, int searchThreads) {
  unsigned char firstControlChar = ' ';
  int32_t firstControlPos = 0;
  double controlPercent = 0;
  bool isUtf8 = false;
  ClassifyTextFile(fileName, kSampleBytes, firstControlChar, firstControlPos, 0, controlPercent,
                   isUtf8, true, rules, searchThreads);
  return isUtf8;
}

int16_t IsZipFile(const std::string& fileName) {
  if (!FileExists(fileName)) return -1;
  ByteFile file;
  if (file.Open(fileName) != 0) return 0;
  std::array<unsigned char, 16> head{};
  std::ptrdiff_t got = file.Read(reinterpret_cast<char*>(head.data()), head.size());
  if (got < 10) return 0;
  return (head[0] == 0x50 && head[1] == 0x4B && head[2] == 0x03 && head[3] == 0x04) ? 1 : 0;
}

bool CheckInputFileExists(Host& host, const std::string& fileName) {
  if (fileName.empty()) return false;
  if (!FileExists(fileName)) {
    Tell(host, "File not found", "Input file does not exist.", MessageIcon::Exclamation);
    MakeCurrentDirectory(FolderPart(fileName));
    return false;
  }
  int64_t fileLength = FileSize(fileName);
  if (fileLength > 0) {
    host.SetCaption(Control::FileSize, "Filesize: " + FormatFileSize(fileLength, 2));
  } else {
    Tell(host, "Empty file", "Input file is zero-length.", MessageIcon::Exclamation);
    host.SetCaption(Control::FileSize, "Filesize: 0 bytes");
  }
  MakeCurrentDirectory(FolderPart(fileName));
  return fileLength > 0;
}

void ShowNotDocxMessage(Host& host, const std::string& fileName) {
  Tell(host, kNotDocxTitle,
       "The file " + fileName + kNewLine +
           "has a 'docx' extension but does not appear to be an MS Word 'docx' file.",
       MessageIcon::Exclamation);
}

}  // namespace wordtally
