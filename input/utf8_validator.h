#pragma once
// A check of a byte stream, fed in pieces of any size, for well-formed UTF-8: no stray or
// missing continuation bytes, no overlong forms, no surrogates, nothing beyond U+10FFFF.
#include <string_view>

namespace wordtally {

class Utf8Validator {
 public:
  // Takes the next piece; false once the bytes so far cannot be UTF-8 (more input changes nothing).
  bool Feed(std::string_view bytes);
  // Everything fed is UTF-8, no sequence is left open, and at least one is longer than a byte.
  bool IsMultiByteUtf8() const { return valid_ && pending_ == 0 && multiByte_; }

 private:
  bool StartSequence(unsigned char lead);

  bool valid_ = true;
  bool multiByte_ = false;
  int pending_ = 0;  // continuation bytes still expected
  // The range of the next continuation byte; narrower than 80..BF only after E0, ED, F0 and F4.
  unsigned char low_ = 0x80;
  unsigned char high_ = 0xBF;
};

}  // namespace wordtally
