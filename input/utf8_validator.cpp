#include "input/utf8_validator.h"

#include <cstdint>
#include <cstring>

namespace wordtally {

namespace {

constexpr uint64_t kHighBits = 0x8080808080808080;

}  // namespace

bool Utf8Validator::StartSequence(unsigned char lead) {
  low_ = 0x80;
  high_ = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    pending_ = 1;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    pending_ = 2;
    if (lead == 0xE0) low_ = 0xA0;   // shorter forms are overlong
    if (lead == 0xED) high_ = 0x9F;  // beyond are the surrogates
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    pending_ = 3;
    if (lead == 0xF0) low_ = 0x90;
    if (lead == 0xF4) high_ = 0x8F;  // beyond is past U+10FFFF
  } else {
    return false;
  }
  multiByte_ = true;
  return true;
}

bool Utf8Validator::Feed(std::string_view bytes) {
  const char* p = bytes.data();
  const char* const end = p + bytes.size();
  while (valid_ && p < end) {
    if (pending_ == 0) {
      // Plain ASCII, the bulk of most text, is stepped over eight bytes at a time.
      uint64_t block = 0;
      while (end - p >= 8 && (std::memcpy(&block, p, 8), (block & kHighBits) == 0)) p += 8;
      if (p == end) break;
      const auto lead = static_cast<unsigned char>(*p++);
      if (lead >= 0x80) valid_ = StartSequence(lead);
      continue;
    }
    const auto next = static_cast<unsigned char>(*p++);
    valid_ = next >= low_ && next <= high_;
    low_ = 0x80;
    high_ = 0xBF;
    --pending_;
  }
  return valid_;
}

}  // namespace wordtally
