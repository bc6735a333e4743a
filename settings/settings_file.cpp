#include "settings/settings_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "settings/settings_format.h"
#include "support/file_utils.h"

namespace wordtally {

namespace {

namespace fs = std::filesystem;

// Far beyond any real settings file; a larger file is something else picked by mistake.
constexpr int64_t kLargestSettingsFile = 16 * 1024 * 1024;
constexpr std::string_view kNothingChanged = "\r\n\r\nNo setting was changed.";

AnsiString Quoted(const std::string& path) {
  AnsiString quoted(1, '"');
  quoted += Utf8ToAnsiText(path);
  quoted += '"';
  return quoted;
}

AnsiString SystemReason() { return std::strerror(errno); }

bool ReadSettingsText(const std::string& path, std::string& text, AnsiString& error) {
  if (!FileExists(path)) {
    error = "The settings file " + Quoted(path) + " was not found.";
    return false;
  }
  if (FileSize(path) > kLargestSettingsFile) {
    error = "The file " + Quoted(path) + " is not a Wordtally settings file.";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "The settings file " + Quoted(path) + " could not be read (" + SystemReason() + ").";
    return false;
  }
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

AnsiString RefusalMessage(const std::string& path, const SettingsParseResult& result) {
  switch (result.verdict) {
    case SettingsVerdict::Foreign:
      return "The file " + Quoted(path) + " is not a Wordtally settings file.";
    case SettingsVerdict::UnsupportedVersion:
      return "The settings file " + Quoted(path) + " has format version " + result.detail +
             ", which this version of Wordtally cannot read.";
    case SettingsVerdict::Damaged:
      return "The settings file " + Quoted(path) + " is damaged:\r\n" + result.detail + ".";
    case SettingsVerdict::Accepted:
      break;
  }
  return {};
}

bool WriteNewFile(const std::string& path, const std::string& text, AnsiString& reason) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (out) out.write(text.data(), static_cast<std::streamsize>(text.size()));
  if (out) out.close();
  if (!out) reason = SystemReason();
  return static_cast<bool>(out);
}

}  // namespace

bool SaveSettingsFile(const std::string& path, const CountingSettings& settings,
                      AnsiString& error) {
  const fs::path target(path);
  std::error_code ignored;
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), ignored);

  const std::string temporary = path + ".tmp";
  AnsiString reason;
  bool saved = WriteNewFile(temporary, FormatSettings(settings), reason);
  if (saved) {
    std::error_code renameError;
    fs::rename(temporary, target, renameError);
    saved = !renameError;
    if (!saved) reason = renameError.message();
  }
  if (!saved) {
    fs::remove(temporary, ignored);
    error = "The settings could not be saved to " + Quoted(path) + " (" + reason + ").";
  }
  return saved;
}

bool LoadSettingsFile(const std::string& path, CountingSettings& settings, AnsiString& error) {
  std::string text;
  if (!ReadSettingsText(path, text, error)) return false;
  const SettingsParseResult result = ParseSettings(text, settings);
  if (result.verdict == SettingsVerdict::Accepted) return true;
  error = RefusalMessage(path, result) + AnsiString(kNothingChanged);
  return false;
}

}  // namespace wordtally
