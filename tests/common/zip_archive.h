#pragma once
// Writes small zip archives (docx files among them) for the tests and the fuzz targets.
#include <zip.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wordtally::testing {

// An archive at path holding each (name, content) part, deflated; false when it was not written.
inline bool WriteZipArchive(const std::string& path,
                            const std::vector<std::pair<std::string, std::string_view>>& parts) {
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (archive == nullptr) return false;
  for (const auto& [name, content] : parts) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    if (source == nullptr || zip_file_add(archive, name.c_str(), source, ZIP_FL_OVERWRITE) < 0) {
      zip_source_free(source);
      zip_discard(archive);
      return false;
    }
  }
  return zip_close(archive) == 0;
}

}  // namespace wordtally::testing
