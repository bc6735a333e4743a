#include "results/output_file.h"

#include "support/file_utils.h"

namespace wordtally {

namespace {

constexpr size_t kWriteBlockSize = size_t{1} << 20;

constexpr std::string_view kExtensionText = "The output file should have extension 'txt' or 'csv'.";
constexpr std::string_view kExtensionTitle = "Output file extension";
constexpr std::string_view kOverwriteTitle = "The output file exists.";
constexpr std::string_view kOverwritePrompt =
    "To overwrite the current output file click on 'OK'.\r\n"
    "To write to a different file edit the filepath below.\r\n"
    "To disable output to file click on 'Cancel'.\r\n"
    "(This 'warn on overwrite' can be disabled\r\n"
    "in the 'Settings' window.)";
constexpr std::string_view kNoFolderText = "Folder does not exist.";
constexpr std::string_view kNoFolderTitle = "Output file";
constexpr std::string_view kNoteStart = "\"To open this file in Excel state that it is delimited by ";
constexpr std::string_view kNoteCommas = "commas.";
constexpr std::string_view kNoteSpaces = "spaces.";
constexpr std::string_view kNoteEnd =
    "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"";

bool HasListingExtension(Host& host, const AnsiString& path) {
  const std::string extension = LowerExtension(path);
  if (extension == "txt" || extension == "csv") return true;
  Tell(host, kExtensionTitle, kExtensionText, MessageIcon::Exclamation);
  return false;
}

bool FolderOfPathExists(const AnsiString& path) {
  const std::string folder = FolderPart(path);
  return folder.empty() || FolderExists(folder);
}

}  // namespace

std::optional<AnsiString> ConfirmOutputFile(Host& host, const AnsiString& strOutputFile,
                                            bool blnWarnOnOverwrite) {
  if (!HasListingExtension(host, strOutputFile)) return std::nullopt;
  if (!blnWarnOnOverwrite || !FileExists(strOutputFile)) return strOutputFile;

  const std::optional<AnsiString> edited =
      host.InputBox(AnsiString(kOverwriteTitle), AnsiString(kOverwritePrompt), strOutputFile);
  if (!edited || *edited == strOutputFile) return edited;
  if (!FolderOfPathExists(*edited)) {
    Tell(host, kNoFolderTitle, kNoFolderText, MessageIcon::Exclamation);
    return std::nullopt;
  }
  if (!HasListingExtension(host, *edited)) return std::nullopt;
  return edited;
}

AnsiString OutputFileNote(bool blnCommas) {
  AnsiString note(kNoteStart);
  note.append(blnCommas ? kNoteCommas : kNoteSpaces);
  note.append(kCrLf);
  note.append(kNoteEnd);
  note.append(kCrLf);
  return note;
}

OutputFileWriter::~OutputFileWriter() { Close(); }

bool OutputFileWriter::Open(const AnsiString& path) {
  Close();
  failed_ = false;
  buffer_.clear();
  buffer_.reserve(kWriteBlockSize);
  file_ = std::fopen(path.c_str(), "wb");
  return file_ != nullptr;
}

void OutputFileWriter::Write(std::string_view text) {
  if (file_ == nullptr) return;
  buffer_.append(text);
  if (buffer_.size() >= kWriteBlockSize) Flush();
}

void OutputFileWriter::WriteLine(std::string_view line) {
  Write(line);
  Write(kCrLf);
}

bool OutputFileWriter::Close() {
  if (file_ != nullptr) {
    Flush();
    if (file_ != nullptr && std::fclose(file_) != 0) failed_ = true;
    file_ = nullptr;
  }
  return !failed_;
}

void OutputFileWriter::Flush() {
  if (!buffer_.empty() &&
      (std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size() ||
       std::fflush(file_) != 0)) {
    Abandon();
  }
  buffer_.clear();
}

void OutputFileWriter::Abandon() {
  failed_ = true;
  std::fclose(file_);
  file_ = nullptr;
}

}  // namespace wordtally
