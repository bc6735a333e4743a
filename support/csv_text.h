#pragma once
// CSV text as RFC 4180 has it: fields separated by commas, records ended by CR LF, a field with a
// comma, a double quote or a line break enclosed in double quotes with its quotes doubled.
#include <string>
#include <string_view>
#include <vector>

namespace wordtally {

// The UTF-8 byte-order mark that makes spreadsheet programs read a CSV file as UTF-8.
inline constexpr std::string_view kUtf8ByteOrderMark = "\xEF\xBB\xBF";

// The fields as one record, ended by CR LF.
std::string CsvRecord(const std::vector<std::string>& fields);

}  // namespace wordtally
