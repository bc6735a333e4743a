#pragma once
// Splits a fuzzer's input into option bits taken from its first bytes and the rest.
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace wordtally::fuzz {

class FuzzInput {
 public:
  FuzzInput(const uint8_t* data, size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  // The next option byte (0 when the input is used up).
  uint8_t TakeByte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

inline bool Bit(uint8_t byte, int bit) { return (byte >> bit) & 1; }

}  // namespace wordtally::fuzz
