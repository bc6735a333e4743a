// Line reading, preparation and decoding: any bytes, read as any kind of file, as ANSI or UTF-8,
// through small blocks and a small line limit, so that over-long lines are cut too.
#include <string>

#include "fuzz/fuzz_input.h"
#include "input/decoding.h"
#include "input/line_preparation.h"
#include "input/line_reader.h"

namespace {

constexpr const char* kFileNames[] = {"a.txt", "a.htm", "a.xml", "a.php"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace wordtally;
  fuzz::FuzzInput input(data, size);
  const uint8_t options = input.TakeByte();
  const size_t maxLineLength = 8 + input.TakeByte();
  LineReader reader(16, maxLineLength);
  reader.OpenText(AnsiString(input.Rest()));
  LinePreparer preparer(kFileNames[options & 3], fuzz::Bit(options, 2), fuzz::Bit(options, 3));
  std::string_view line;
  while (preparer.NextLine(reader, line)) {
    // The whole-text decoder of clipboard and docx text on the same bytes.
    if (Utf8ToAnsiText(line).size() > line.size()) __builtin_trap();
  }
  return 0;
}
