#pragma once
// Number, size and time texts used in messages and labels.
#include <cstdint>
#include <string>

namespace wordtally {

// Whole number with digit grouping: 1234567 -> "1,234,567".
std::string FormatWholeNumber(int64_t n);
// Language-neutral decimal text with one blank before a non-negative number: 1 -> " 1", -1 -> "-1".
std::string NumberText(int64_t n);
// 512 -> "512 bytes", 409600 -> "400.00 Kb", 1572864 -> "1.50 Mb" (with decimals = 2).
std::string FormatFileSize(int64_t bytes, int decimals);
// "" for a negative count, "0 bytes", "1,234 bytes" ("Bytes" when capitalise).
std::string FormatByteCount(double count, bool capitalise);
// Elapsed-time text: "0s", "59s", "1m 05s", "1h 02m 03s".
std::string FormatElapsedTime(int64_t seconds);

}  // namespace wordtally
