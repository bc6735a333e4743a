// The settings-file reader: any text is refused or read; a record that was read, written out
// and read back must be the same record.
#include <string>

#include "settings/settings_format.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace wordtally;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CountingSettings read;
  if (ParseSettings(text, read).verdict != SettingsVerdict::Accepted) return 0;
  const std::string written = FormatSettings(read);
  CountingSettings readBack;
  if (ParseSettings(written, readBack).verdict != SettingsVerdict::Accepted) __builtin_trap();
  if (FormatSettings(readBack) != written) __builtin_trap();
  return 0;
}
