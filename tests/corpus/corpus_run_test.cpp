// A corpus run over real files against one-file runs of the same files, a different code path:
// its totals are their sums, its columns their counts.
#include <fstream>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "corpus/corpus_run.h"
#include "engine/run_driver.h"
#include "input/decoding.h"
#include "input/file_vetting.h"
#include "support/file_utils.h"
#include "tests/common/scripted_host.h"

namespace wordtally::testing {
namespace {

using WordCounts = std::map<std::string, int32_t>;

// Answers "UTF-8 or ANSI file?" as the file seems to be, whatever the question's buttons.
class FollowingHost : public ScriptedHost {
 public:
  Answer ShowMessage(const MessageBoxRequest& request) override {
    if (request.title != kUtf8OrAnsiTitle) return ScriptedHost::ShowMessage(request);
    return request.text == kSeemsUtf8Question ? Answer::Yes : Answer::No;
  }
};

struct CorpusRunTest : ::testing::Test {
  CorpusRunTest() {
    ctx.run.blnStartUpCompleted = true;
    ctx.skipLineEndingChecks = true;
  }

  WordCounts Listed() const {
    WordCounts counts;
    const auto list = ctx.store.WordList();
    for (size_t i = 1; i < list.size(); ++i) counts[std::string(list[i].Word)] = list[i].Frequency;
    return counts;
  }

  FollowingHost host;
  CountingSettings settings;
  EngineContext ctx{host, settings};
};

TEST_F(CorpusRunTest, TotalsAreTheSumsOfOneFileRunsAndColumnsTheirCounts) {
  const std::string data = WORDTALLY_TEST_DATA "/";
  const std::vector<std::string> files = {data + "en_gutenberg_news_from_nowhere_ch13.htm",
                                          data + "pl_pan_tadeusz_invocation_utf8_lf.txt",
                                          data + "en_tika_testWORD.docx"};
  const TemporaryFolder folder;
  const std::string refused = folder.Path() + "/not a zip.docx";
  std::ofstream(refused) << "plain text, not a docx file\n";
  std::vector<WordCounts> alone;
  WordCounts sum;
  int32_t occurrences = 0;
  ctx.threads = 1;  // the one-file runs line after line
  for (const std::string& file : files) {
    settings.txbFile[0] = file;
    DoIt(ctx);
    alone.push_back(Listed());
    for (const auto& [word, count] : alone.back()) sum[word] += count;
    occurrences += ctx.run.lngTotalNumOccurrences;
  }

  host.messages.clear();
  // The corpus's larger files in small pieces on threads: their per-file counts come from the
  // pieces' stores.
  ctx.threads = 3;
  ctx.pieceBytes = 256;
  CorpusRun run({files[0], refused, files[1], files[2]});
  run.Attach(ctx);
  DoIt(ctx);
  // The refused file is told once, by the message that says why.
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, kNotDocxTitle);
  EXPECT_EQ(Listed(), sum);
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, occurrences);
  EXPECT_EQ(run.FilesCounted(), 3);
  EXPECT_THAT(run.Skipped(), ::testing::ElementsAre(refused));
  EXPECT_EQ(host.Caption(Control::StatFiles), "Files counted: 3, skipped: 1");
  ASSERT_EQ(run.Counts().words.size(), sum.size());
  for (const CorpusWord& word : run.Counts().words) {
    std::vector<FileCount> expected;
    for (int32_t f = 0; f < 3; ++f) {
      const auto found = alone[static_cast<size_t>(f)].find(word.word);
      if (found != alone[static_cast<size_t>(f)].end()) expected.push_back({f, found->second});
    }
    ASSERT_EQ(word.perFile.size(), expected.size()) << word.word;
    for (size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(std::tie(word.perFile[i].file, word.perFile[i].count),
                std::tie(expected[i].file, expected[i].count))
          << word.word;
    }
  }
  run.Detach(ctx);
}

}  // namespace
}  // namespace wordtally::testing
