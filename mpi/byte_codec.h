#pragma once
// Byte strings built and read field by field, for the messages between ranks: numbers as eight
// bytes in the host's order (the ranks of one job run the same build), strings with their length.
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

namespace wordtally {

class ByteWriter {
 public:
  void Number(uint64_t value) { bytes_.append(reinterpret_cast<const char*>(&value), sizeof value); }
  void Text(std::string_view text) {
    Number(text.size());
    bytes_.append(text);
  }
  std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

// Throws std::runtime_error when a field runs past the end: a message cut short.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : rest_(bytes) {}
  uint64_t Number() {
    uint64_t value;
    std::memcpy(&value, Take(sizeof value).data(), sizeof value);
    return value;
  }
  std::string Text() { return std::string(Take(Number())); }

 private:
  std::string_view Take(uint64_t size) {
    if (size > rest_.size()) throw std::runtime_error("A message between ranks was cut short.");
    const std::string_view field = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return field;
  }
  std::string_view rest_;
};

}  // namespace wordtally
