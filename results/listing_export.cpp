#include "results/listing_export.h"

#include "results/output_file.h"

namespace wordtally {

bool WriteListingFile(const AnsiString& path, std::span<const WordListEntry> WordList,
                      std::span<const int32_t> indexes, const ListingLayout& layout) {
  OutputFileWriter file;
  if (!file.Open(path)) return false;
  file.Write(OutputFileNote(layout.blnCommaMode));
  ListingLineMaker lines(layout);
  file.WriteLine(lines.Line(WordList, 0));
  // Format 9 lists the words one after another on one line, as the listing does.
  const bool oneLine = layout.cboDisplayFormat == kWordWithCommas;
  for (size_t n = 0; n < indexes.size(); ++n) {
    const std::string_view line = lines.Line(WordList, indexes[n]);
    if (oneLine) {
      if (n > 0) file.Write(", ");
      file.Write(line);
    } else {
      file.WriteLine(line);
    }
  }
  if (oneLine) file.Write(kCrLf);
  return file.Close();
}

}  // namespace wordtally
