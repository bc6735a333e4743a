#pragma once
// Whole counting runs driven headless: a scripted host that also lets a test look at the run at
// the moment a message box appears, default settings, and input files in a fresh folder.
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "engine/run_driver.h"
#include "support/file_utils.h"
#include "tests/common/scripted_host.h"

namespace wordtally::testing {

class WatchingHost : public ScriptedHost {
 public:
  Answer ShowMessage(const MessageBoxRequest& request) override {
    if (onMessage) onMessage(request);
    return ScriptedHost::ShowMessage(request);
  }
  void SetOutputText(const AnsiString& text) override {
    outputHistory.push_back(text);
    ScriptedHost::SetOutputText(text);
  }
  void SetPastedText(const std::u16string& text) override {
    if (onPaste) onPaste();
    pasted.push_back(text);
  }

  // Called as each message box is shown, before it is answered.
  std::function<void(const MessageBoxRequest&)> onMessage;
  // Called as text is pasted into the large text box (may throw, as a failing paste does).
  std::function<void()> onPaste;
  std::vector<AnsiString> outputHistory;  // every text the output textbox was set to
  std::vector<std::u16string> pasted;
};

class WholeRunTest : public ::testing::Test {
 protected:
  WholeRunTest() { ctx.run.blnStartUpCompleted = true; }

  std::string PathOf(const std::string& name) const { return folder.Path() + "/" + name; }

  std::string WriteFile(const std::string& name, std::string_view bytes) const {
    const std::string path = PathOf(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  static std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  void CountFile(const std::string& path) {
    settings.optInFile = true;
    settings.txbFile[0] = path;
    DoIt(ctx);
  }

  void CountClipboard(std::u16string text) {
    settings.optInFile = false;
    host.clipboard = std::move(text);
    DoIt(ctx);
  }

  // The message boxes shown with this title.
  std::vector<MessageBoxRequest> MessagesTitled(std::string_view title) const {
    std::vector<MessageBoxRequest> found;
    for (const auto& m : host.messages) {
      if (m.title == title) found.push_back(m);
    }
    return found;
  }

  // The run's end left the window idle: idle caption, not busy, clock stopped.
  void ExpectIdle() const {
    EXPECT_EQ(host.Caption(Control::CountButton), texts::kCountButtonIdle);
    EXPECT_FALSE(host.busy);
    EXPECT_FALSE(host.timerRunning);
    EXPECT_FALSE(ctx.run.blnElapsedTimeRunning);
  }

  TemporaryFolder folder;
  WatchingHost host;
  CountingSettings settings;
  EngineContext ctx{host, settings};
};

// count distinct words "kaaaa", "kaaab", ... (from the first-th on), one per line.
inline std::string DistinctWords(int count, int first = 0) {
  std::string text;
  for (int i = first; i < first + count; ++i) {
    text += "ka";
    text += static_cast<char>('a' + i / 676);
    text += static_cast<char>('a' + i / 26 % 26);
    text += static_cast<char>('a' + i % 26);
    text += "\r\n";
  }
  return text;
}

inline bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

inline bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// "   Rank    Freq  Word (longest has N characters)" and one line per word, each ended by CR LF:
// the textbox after a format-0 listing.
inline AnsiString RankFreqWordListing(int longest, const std::vector<std::string>& lines) {
  AnsiString text = "   Rank    Freq  Word (longest has " + std::to_string(longest) +
                    " characters)\r\n";
  for (const auto& line : lines) text += line + "\r\n";
  return text;
}

}  // namespace wordtally::testing
