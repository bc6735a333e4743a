#include "support/number_format.h"

#include <cmath>
#include <cstdio>

namespace wordtally {
namespace {

// Inserts a comma between each group of three digits of a run of digits.
std::string GroupDigits(const std::string& digits) {
  std::string out;
  const size_t n = digits.size();
  for (size_t i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return out;
}

std::string FormatGroupedDecimal(double value, int decimals) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  const std::string text = buffer;
  const size_t point = text.find('.');
  const std::string whole = text.substr(0, point);
  const std::string fraction = point == std::string::npos ? "" : text.substr(point);
  return GroupDigits(whole) + fraction;
}

std::string TwoDigits(int64_t n) {
  std::string text = std::to_string(n);
  if (n < 10) text.insert(text.begin(), '0');
  return text;
}

}  // namespace

std::string FormatWholeNumber(int64_t n) {
  std::string grouped = GroupDigits(std::to_string(n < 0 ? -n : n));
  if (n < 0) grouped.insert(grouped.begin(), '-');
  return grouped;
}

std::string NumberText(int64_t n) {
  std::string text = std::to_string(n);
  if (n >= 0) text.insert(text.begin(), ' ');
  return text;
}

std::string FormatFileSize(int64_t bytes, int decimals) {
  if (bytes < 1024) return std::to_string(bytes) + " bytes";
  if (bytes < 1048576) return FormatGroupedDecimal(bytes / 1024.0, decimals) + " Kb";
  return FormatGroupedDecimal(bytes / 1048576.0, decimals) + " Mb";
}

std::string FormatByteCount(double count, bool capitalise) {
  const std::string word = capitalise ? "Bytes" : "bytes";
  if (count < 0) return "";
  if (count == 0) return "0 " + word;
  return FormatGroupedDecimal(std::round(count), 0) + " " + word;
}

std::string FormatElapsedTime(int64_t seconds) {
  const int64_t h = seconds / 3600, m = seconds / 60 % 60, s = seconds % 60;
  if (h > 0) return std::to_string(h) + "h " + TwoDigits(m) + "m " + TwoDigits(s) + "s";
  if (m > 0) return std::to_string(m) + "m " + TwoDigits(s) + "s";
  return std::to_string(s) + "s";
}

}  // namespace wordtally
