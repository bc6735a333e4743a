#pragma once
// The output file of a listing: which file (extension check, overwrite warning) and a buffered
// writer of Windows-1252 lines with CR LF ends, headed by a note for spreadsheet programs.
#include <cstdio>
#include <optional>
#include <string_view>

#include "support/ansi_text.h"
#include "support/host.h"

namespace wordtally {

// The path the listing is to be written to, or nothing when output to file is off for this
// listing. Refuses a name not ending in "txt" or "csv" with a message; when the file exists and
// blnWarnOnOverwrite is set, offers the path for editing in an input box, where Cancel turns
// output to file off and an edited path in a missing folder is refused with a message.
std::optional<AnsiString> ConfirmOutputFile(Host& host, const AnsiString& strOutputFile,
                                            bool blnWarnOnOverwrite);

// Checks before counting that the listing can be written to path without touching what is
// there: an existing regular file is opened for writing and closed unchanged, a missing one is
// created and removed again; nothing else is opened, so the check never waits. False, with the
// message shown, when path is not a regular file (a folder, a pipe, a device, a link to nothing);
// throws RunError 70 or 75 when the system refuses to write there.
bool ProbeOutputFile(Host& host, const AnsiString& path);

// The two-line note in one pair of double quotes, so that a spreadsheet reads it as one cell;
// it names commas or spaces as the delimiter. Ends with CR LF.
AnsiString OutputFileNote(bool blnCommas);

// Collects the text in a large buffer and writes it in big blocks. The first failed write closes
// the file; later writes are ignored.
class OutputFileWriter {
 public:
  OutputFileWriter() = default;
  OutputFileWriter(const OutputFileWriter&) = delete;
  OutputFileWriter& operator=(const OutputFileWriter&) = delete;
  ~OutputFileWriter();

  // Creates or empties the file; false when it cannot be opened for writing (a pipe without a
  // reader among them: it is never waited for).
  bool Open(const AnsiString& path);
  void Write(std::string_view text);
  void WriteLine(std::string_view line);  // the line and CR LF
  // Writes what is buffered and closes; false when any write failed.
  bool Close();

  bool IsOpen() const { return file_ != nullptr; }
  bool Failed() const { return failed_; }

 private:
  void Flush();
  void Abandon();

  std::FILE* file_ = nullptr;
  AnsiString buffer_;
  bool failed_ = false;
};

}  // namespace wordtally
