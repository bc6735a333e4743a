// The modern text switch in settings files: stored only when on, off when a file leaves it out.
#include <gtest/gtest.h>

#include "settings/settings_format.h"

namespace wordtally {
namespace {

TEST(ModernTextSetting, IsWrittenWhenOnAndOffWhenLeftOut) {
  CountingSettings modern;
  modern.chkModernText = 1;
  const std::string text = FormatSettings(modern);
  EXPECT_NE(text.find("\nchkModernText=1\n"), std::string::npos) << text;
  EXPECT_EQ(FormatSettings(CountingSettings{}).find("chkModernText"), std::string::npos);

  CountingSettings loaded;
  ASSERT_EQ(ParseSettings(text, loaded).verdict, SettingsVerdict::Accepted);
  EXPECT_EQ(loaded.chkModernText, 1);
  // A file of the classic settings, such as one written before the switch existed.
  ASSERT_EQ(ParseSettings(FormatSettings(CountingSettings{}), loaded).verdict,
            SettingsVerdict::Accepted);
  EXPECT_EQ(loaded.chkModernText, 0);
  EXPECT_EQ(ParseSettings("[Wordtally settings]\nversion=1\nchkModernText=2\n", loaded).verdict,
            SettingsVerdict::Damaged);
}

}  // namespace
}  // namespace wordtally
