#pragma once
// The engine driven headless: a scripted host that also lets a test look at the run at the moment
// a message box appears, default settings, files in a fresh folder, and the hand-worked listings.
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <ostream>
#include <tuple>

#include <gmock/gmock.h>

#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "engine/run_driver.h"
#include "engine/word_extraction.h"
#include "support/file_utils.h"
#include "tests/common/scripted_host.h"

namespace wordtally {

// A failing expectation shows a message box by its title and text.
inline void PrintTo(const MessageBoxRequest& box, std::ostream* out) {
  *out << "\"" << box.title << "\": \"" << box.text << "\"";
}

namespace testing {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Le;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;
using TextMatcher = ::testing::Matcher<const AnsiString&>;
using Boxes = ::testing::Matcher<const std::vector<MessageBoxRequest>&>;

// A message box with this title, text, buttons and icon.
inline ::testing::Matcher<const MessageBoxRequest&> Box(
    std::string_view title, const TextMatcher& text, MessageButtons buttons = MessageButtons::Ok,
    MessageIcon icon = MessageIcon::Exclamation) {
  using ::testing::Field;
  return AllOf(Field(&MessageBoxRequest::title, AnsiString(title)),
               Field(&MessageBoxRequest::text, text), Field(&MessageBoxRequest::buttons, buttons),
               Field(&MessageBoxRequest::icon, icon));
}

class WatchingHost : public ScriptedHost {
 public:
  Answer ShowMessage(const MessageBoxRequest& request) override {
    if (onMessage) onMessage(request);
    return ScriptedHost::ShowMessage(request);
  }
  void SetPastedText(const std::u16string& text) override {
    if (onPaste) onPaste();  // may throw, as a failing paste does
    pasted.push_back(text);
  }

  std::function<void(const MessageBoxRequest&)> onMessage;  // before the box is answered
  std::function<void()> onPaste;
  std::vector<std::u16string> pasted;
};

// The words of the store in its order, each followed by ":n" when counted n > 1 times.
inline std::string Stored(const WordStore& store) {
  std::string stored;
  const auto records = store.WordList();
  for (int32_t i = 1; i <= store.lngNumWords(); ++i) {
    const int32_t n = records[i].Frequency;
    stored.append(i > 1 ? " " : "").append(records[i].Word);
    if (n > 1) stored += ":" + std::to_string(n);
  }
  return stored;
}

// Public members, so that the case tables of a test can set the run up through lambdas.
struct EngineTest : ::testing::Test {
  EngineTest() { ctx.run.blnStartUpCompleted = true; }

  std::string PathOf(const std::string& name) const { return folder.Path() + "/" + name; }

  std::string WriteFile(const std::string& name, std::string_view bytes) const {
    std::ofstream(PathOf(name), std::ios::binary) << bytes;
    return PathOf(name);
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

  // The words the line walk counts from the lines, handed over as the run driver does, into an
  // empty store.
  std::string Walk(const std::vector<std::string>& lines) {
    ctx.store.Reset();
    ctx.run.lngTotalNumOccurrences = ctx.run.lngNumWordsIgnored = 0;
    ctx.run.comment = {};
    LineWalker walker(ctx);
    for (const std::string& line : lines) walker.WalkLine(line);
    return Stored(ctx.store);
  }

  // The run's end left the window idle: idle caption, not busy, clock stopped.
  void ExpectIdle() const {
    EXPECT_EQ(std::tuple(host.Caption(Control::CountButton), host.busy, host.timerRunning,
                         ctx.run.blnElapsedTimeRunning),
              std::tuple(texts::kCountButtonIdle, false, false, false));
  }

  TemporaryFolder folder;
  WatchingHost host;
  CountingSettings settings;
  EngineContext ctx{host, settings};
};

// "kaaaa", "kaaab", ...: distinct words in ascending order.
inline std::string NumberedWord(int i) {
  std::string word = "ka";
  for (int d : {i / 676, i / 26 % 26, i % 26}) word += static_cast<char>('a' + d);
  return word;
}

inline std::string Repeated(std::string_view piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

// count distinct numbered words (from the first-th on), one per line.
inline std::string DistinctWords(int count, int first = 0) {
  std::string text;
  for (int i = first; i < first + count; ++i) text += NumberedWord(i) + "\r\n";
  return text;
}

// The textbox after a format-0 listing: the heading, then rank, frequency and word per line, the
// ranks counting from 1, each line ended by CR LF.
inline AnsiString Listing(int longest, const std::vector<std::pair<int, std::string>>& words) {
  AnsiString text =
      "   Rank    Freq  Word (longest has " + std::to_string(longest) + " characters)\r\n";
  char line[40];
  for (size_t rank = 1; rank <= words.size(); ++rank) {
    std::snprintf(line, sizeof line, "%7zu %7d  ", rank, words[rank - 1].first);
    text += line + words[rank - 1].second + "\r\n";
  }
  return text;
}

}  // namespace testing
}  // namespace wordtally
