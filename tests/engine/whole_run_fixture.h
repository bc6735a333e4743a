#pragma once
// The engine driven headless: a scripted host that also lets a test look at the run at the moment
// a message box appears, default settings, and files in a fresh folder.
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
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
    if (onPaste) onPaste();  // may throw, as a failing paste does
    pasted.push_back(text);
  }

  std::function<void(const MessageBoxRequest&)> onMessage;  // before the box is answered
  std::function<void()> onPaste;
  std::vector<AnsiString> outputHistory;  // every text the output textbox was set to
  std::vector<std::u16string> pasted;
};

inline bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

inline bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

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

  // Exactly one message box was shown; text_start is its text or, with whole false, the text's
  // beginning. The icon is checked when given.
  void ExpectOneMessage(std::string_view title, std::string_view text_start, MessageButtons buttons,
                        std::optional<MessageIcon> icon = std::nullopt, bool whole = true) const {
    ASSERT_EQ(host.messages.size(), 1u);
    const MessageBoxRequest& m = host.messages[0];
    EXPECT_EQ(m.title, title);
    EXPECT_TRUE(whole ? m.text == text_start : StartsWith(m.text, text_start)) << m.text;
    EXPECT_EQ(m.buttons, buttons);
    if (icon) {
      EXPECT_EQ(m.icon, *icon);
    }
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

  // Nothing was counted and the window is idle again.
  void ExpectRefused() const {
    EXPECT_EQ(ctx.store.lngNumWords(), 0);
    EXPECT_FALSE(ctx.run.blnWordsGot);
    ExpectIdle();
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
    for (int d : {i / 676, i / 26 % 26, i % 26}) text += static_cast<char>('a' + d);
    text += "\r\n";
  }
  return text;
}

inline std::string Repeated(std::string_view piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
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
