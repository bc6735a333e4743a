// The vetting of input files under the modern text rules, beside the classic ones.
#include <gtest/gtest.h>

#include "input/file_vetting.h"
#include "input/utf8_validator.h"
#include "tests/common/scripted_host.h"
#include "tests/input/input_test.h"

namespace wordtally {
namespace {

using ModernTextVettingTest = testing::InputTest;

TEST_F(ModernTextVettingTest, ValidMultiByteUtf8OfAnyNameIsUtf8) {
  // A Polish poem in UTF-8 without a mark, a charset or E2 80.
  std::ifstream in(WORDTALLY_TEST_DATA "/pl_pan_tadeusz_invocation_utf8_lf.txt");
  const std::string poem{std::istreambuf_iterator<char>(in), {}};
  const struct {
    std::string name, bytes;
    int16_t modernProbe;
  } kCases[] = {
      {"poem.txt", poem, kProbeUtf8},
      {"poem", poem, kProbeUtf8},
      {"latin1.txt", "Nowogr\xF3" "dzki gr\xF3" "d", kProbeUndecided},
      {"ascii.txt", "only plain words", kProbeUndecided},
      {"cut.txt", poem + "\xC3", kProbeUndecided},
      {"overlong.txt", "slash \xC0\xAF", kProbeUndecided},
      {"surrogate.txt", "half \xED\xA0\x80", kProbeUndecided},
      {"beyond.txt", "past \xF4\x90\x80\x80", kProbeUndecided},
  };
  for (const auto& [name, bytes, modernProbe] : kCases) {
    const std::string path = Write(name, bytes);
    EXPECT_EQ(DetectFileEncoding(path, true), kProbeUndecided) << name;
    EXPECT_EQ(DetectFileEncoding(path, true, TextRules::Modern), modernProbe) << name;
  }
  // A sequence cut between two pieces of the stream.
  Utf8Validator validator;
  EXPECT_TRUE(validator.Feed("caf\xC3"));
  EXPECT_FALSE(validator.IsMultiByteUtf8());
  EXPECT_TRUE(validator.Feed("\xA9"));
  EXPECT_TRUE(validator.IsMultiByteUtf8());
}

TEST_F(ModernTextVettingTest, UnixFilesPassAtAnySizeAndUtf8FilesAreScanned) {
  std::string unixText;
  while (unixText.size() <= 512000) unixText += "Litwo ojczyzno moja ty jestes jak zdrowie\n";
  const std::string big = Write("big.txt", unixText);
  const std::string binary = Write("bin.txt", "\xE2\x80\x94\x01\x02\x03 data");
  const struct {
    std::string path;
    TextRules rules;
    bool accepted;
    const char* title;  // of the one message, or nullptr
  } kCases[] = {
      {big, TextRules::Modern, true, nullptr},
      {binary, TextRules::Classic, true, nullptr},
      {binary, TextRules::Modern, false, "Not a text file"},
  };
  for (const auto& [path, rules, accepted, title] : kCases) {
    testing::ScriptedHost host;
    bool macShown = false, isUtf8 = false;
    int16_t classCode = 0;
    EXPECT_EQ(CheckInputFile(host, macShown, path, false, isUtf8, classCode, true, rules),
              accepted);
    ASSERT_EQ(host.messages.size(), title ? 1u : 0u) << path;
    if (title) {
      EXPECT_EQ(host.messages[0].title, title);
    }
  }
}

}  // namespace
}  // namespace wordtally
