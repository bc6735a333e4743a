#include "cli/listing_spool.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace wordtally {
namespace {

TEST(ListingSpoolTest, GivesBackEverythingInOrderWhereverItWasKept) {
  const struct { std::size_t memoryLimit; std::vector<std::string> parts; std::string all; } cases[] = {
      {100, {"one\n", "two\n"}, "one\ntwo\n"},                 // in memory only
      {4, {"one\n", "two\n", "x"}, "one\ntwo\nx"},             // spilled twice, a rest in memory
      {1, {"a", "", "bc", "\n"}, "abc\n"},                     // every part spilled
  };
  for (const auto& c : cases) {
    ListingSpool spool(c.memoryLimit);
    for (const std::string& part : c.parts) spool.Append(part);
    std::ostringstream out;
    spool.WriteTo(out);
    EXPECT_FALSE(spool.Empty());
    EXPECT_EQ(out.str(), c.all) << c.memoryLimit;
  }
}

}  // namespace
}  // namespace wordtally
