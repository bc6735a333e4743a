#pragma once
// An unexpected error of a counting run, numbered as the error report expects
// (6 overflow, 7 out of memory, 51 internal error, 53 file not found, 70 permission denied,
// 75 path/file access).
// Only the run procedures catch it; every other routine reports by its return value.
#include <stdexcept>
#include <cstdint>
#include <string>

namespace wordtally {

enum RunErrorNumber : int {
  kErrOverflow = 6,
  kErrOutOfMemory = 7,
  kErrInternal = 51,  // any other error no routine expected
  kErrFileNotFound = 53,
  kErrPermissionDenied = 70,
  kErrPathFileAccess = 75,
  kErrTextboxFull = -6,  // the listing would overflow the output textbox
};

class RunError : public std::runtime_error {
 public:
  RunError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

[[noreturn]] inline void ThrowOverflow() { throw RunError(kErrOverflow, "Overflow"); }

// Adds value to a 32-bit sum; passing the 32-bit range is an overflow error.
inline void CheckedAdd(int32_t& sum, int32_t value) {
  if (__builtin_add_overflow(sum, value, &sum)) [[unlikely]] ThrowOverflow();
}

// Adds one to a 32-bit counter; passing 2147483647 is an overflow error, never a wrap-around.
// The throw stays out of line so that the counting paths inline the common case.
inline void Increment(int32_t& counter) {
  if (counter == INT32_MAX) [[unlikely]] ThrowOverflow();
  ++counter;
}

// Adds amount (>= 0) to a 32-bit counter, with the same overflow rule.
inline void Add(int32_t& counter, int32_t amount) {
  if (counter > INT32_MAX - amount) [[unlikely]] ThrowOverflow();
  counter += amount;
}

}  // namespace wordtally
