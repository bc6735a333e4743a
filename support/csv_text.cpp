#include "support/csv_text.h"

namespace wordtally {
namespace {

void AppendField(std::string& record, std::string_view field) {
  if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
    record.append(field);
    return;
  }
  record.push_back('"');
  for (const char c : field) {
    if (c == '"') record.push_back('"');
    record.push_back(c);
  }
  record.push_back('"');
}

}  // namespace

std::string CsvRecord(const std::vector<std::string>& fields) {
  std::string record;
  for (size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) record.push_back(',');
    AppendField(record, fields[i]);
  }
  record.append("\r\n");
  return record;
}

}  // namespace wordtally
