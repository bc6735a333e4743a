#pragma once
// Writes small zip archives (docx files among them) for the tests and the fuzz targets.
#include <zip.h>

#include <string>
#include <string_view>

namespace wordtally::testing {

// An archive at path holding one part named name; false when it could not be written.
inline bool WriteZipArchive(const std::string& path, const char* name, std::string_view content) {
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  zip_source_t* source =
      archive == nullptr ? nullptr : zip_source_buffer(archive, content.data(), content.size(), 0);
  return source != nullptr && zip_file_add(archive, name, source, ZIP_FL_OVERWRITE) >= 0 &&
         zip_close(archive) == 0;
}

}  // namespace wordtally::testing
