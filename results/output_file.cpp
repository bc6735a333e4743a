#include "results/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "support/file_utils.h"
#include "support/run_error.h"

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
constexpr std::string_view kOutputFileTitle = "Output file";
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

// What a path of this kind is when a listing cannot be written to it, else "".
std::string_view UnusableKindText(PathKind kind) {
  switch (kind) {
    case PathKind::Folder: return "a folder";
    case PathKind::Pipe: return "a pipe (FIFO)";
    case PathKind::Device: return "a device";
    case PathKind::Socket: return "a socket";
    case PathKind::BrokenLink: return "a symbolic link to a file that does not exist";
    case PathKind::Missing:
    case PathKind::RegularFile: break;
  }
  return {};
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
    Tell(host, kOutputFileTitle, kNoFolderText, MessageIcon::Exclamation);
    return std::nullopt;
  }
  if (!HasListingExtension(host, *edited)) return std::nullopt;
  return edited;
}

bool ProbeOutputFile(Host& host, const AnsiString& path) {
  const PathKind kind = KindOfPath(path);
  if (const std::string_view what = UnusableKindText(kind); !what.empty()) {
    Tell(host, kOutputFileTitle,
         "The output file\r\n" + path + "\r\ncannot be used: it is " + AnsiString(what) + ".",
         MessageIcon::Exclamation);
    return false;
  }
  const bool existed = kind == PathKind::RegularFile;
  // O_EXCL: a file is created only where nothing was, never through a symbolic link.
  const int create = existed ? 0 : O_CREAT | O_EXCL;
  const int fd = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | create, 0666);
  if (fd < 0) {
    const int number = errno == EACCES || errno == EPERM || errno == EISDIR ? kErrPermissionDenied
                                                                          : kErrPathFileAccess;
    throw RunError(number, std::strerror(errno));
  }
  ::close(fd);
  if (!existed) ::unlink(path.c_str());
  return true;
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
  // Non-blocking: a pipe put in the file's place while the words were counted is not waited for.
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  file_ = ::fdopen(fd, "wb");
  if (file_ == nullptr) ::close(fd);
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
