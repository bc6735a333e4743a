// A file counted in pieces on worker threads against the same file read line after line on one
// thread: listing, output file, statistics, messages, echo text and settings, byte for byte. The
// pieces are tiny, so that comments, markup, HTML heads and long lines cross their boundaries.
#include <tuple>

#include "tests/engine/engine_fixture.h"

namespace wordtally::testing {
namespace {

// Keeps every text the output box held before it was replaced: the echo of the new words too.
class RecordingHost : public WatchingHost {
 public:
  void SetOutputText(const AnsiString& text) override {
    replaced.push_back(output);
    WatchingHost::SetOutputText(text);
  }
  std::vector<AnsiString> replaced;
};

using RunRecord = std::tuple<std::vector<AnsiString>, AnsiString, std::vector<AnsiString>,
                             std::string, std::vector<AnsiString>, int32_t, int32_t, int, int>;

struct Input {
  std::string name;  // a file in the test data, or the name the built text is written under
  std::string text;  // empty: the file of the test data
};

// Text of count fragments picked from the table by a fixed pseudo-random walk.
std::string Mix(const std::vector<std::string>& fragments, int count) {
  std::string text;
  for (unsigned i = 0, x = 7; i < static_cast<unsigned>(count); ++i, x = x * 1103515245u + 12345u) {
    text += fragments[(x >> 16) % fragments.size()];
  }
  return text;
}

const std::vector<Input>& Inputs() {
  static const std::vector<Input> inputs{
      {"comments.txt", Mix({"alpha /* beta\r\n", "gamma */ delta ", "epsilon // zeta\r\n",
                            "eta\r", "theta\n", "iota kappa ", "/* lambda */ mu\r\n", "\r\n"},
                           900)},
      {"page.html", "<!DOCTYPE html>\r\n<html><head>\r\n<meta charset=\"utf-8\">\r\n<title>t</title>"
                    "\r\n</head>\r\n" + Mix({"caf\xC3\xA9 <b\r\nclass=x>na\xC3\xAFve</b> ",
                    "<script>var no\r\nwords;</script> left\r\n", "<!-- not\r\ncounted --> right\n",
                    "&eacute;t&eacute; &amp; more\r\n", "<p title='a > b'>\r\ntext</p>\r\n"}, 700)},
      {"late_head.htm", Mix({"plain text before\r\n", "the head caf\xC3\xA9\r\n"}, 40) +
                            "<head><meta charset=utf-8>\r\n</head>" + Mix({"caf\xC3\xA9 \r\n"}, 60)},
      {"doctype.txt", "<!DOCTYPE HTML>\r\n" + Mix({"<i>tag</i> word\r\n", "<a\r\nhref=q>x</a>\n"}, 400)},
      {"data.xml", Mix({"<r a='1'>text</r>\n", "<![CDATA[raw\nstuff]]> after\n", "<!-- c\n -->\n",
                        "&lt;less&gt; &eacute;\n"}, 500)},
      {"code.php", Mix({"<?php echo\n$hidden; ?> shown\n", "words here\n", "more <?= $x ?>\n"}, 500)},
      {"long.txt", Mix({Repeated("longword another ", 300) + "\r\n", "short line\r\n", "\r", "\n"}, 60)},
      {"many.txt", DistinctWords(12000)},
      {"en_gutenberg_news_from_nowhere_ch13.htm", ""},
      {"pl_pan_tadeusz_invocation_utf8_lf.txt", ""},
      {"httpd_install_fr_utf8.html", ""},
  };
  return inputs;
}

class PieceCountingTest : public ::testing::TestWithParam<std::tuple<size_t, int64_t, int>> {
 protected:
  RunRecord Count(const std::string& path, int threads, int64_t pieceBytes) {
    RecordingHost host;
    CountingSettings settings;
    EngineContext ctx{host, settings};
    ctx.run.blnStartUpCompleted = true;
    ctx.threads = threads;
    ctx.pieceBytes = pieceBytes;
    const std::string outputFile = folder.Path() + "/out.txt";
    settings.txbFile = {path, outputFile};
    settings.cboWordOrder = 0;
    settings.txbWordsToIgnore = "kappa ipsum more";
    txbWordsToIgnore_LostFocus(settings, host);
    DoIt(ctx);
    std::vector<AnsiString> messages, statistics;
    for (const MessageBoxRequest& box : host.messages) messages.push_back(box.title + box.text);
    for (Control c : {Control::StatWordsInList, Control::StatWordsIgnored,
                      Control::StatWordsExcluded, Control::StatInstancesInList,
                      Control::StatTotalInstances, Control::NumberOfWords}) {
      statistics.push_back(host.Caption(c));
    }
    return {host.replaced, host.output, messages, EngineTest::ReadFile(outputFile), statistics,
            ctx.run.lngTotalNumOccurrences, ctx.run.lngNumWordsIgnored, settings.chkUTF8,
            settings.chkSuppressWords};
  }

  TemporaryFolder folder;
};

TEST_P(PieceCountingTest, PiecesGiveTheOneThreadRunsResults) {
  const auto [input, pieceBytes, threads] = GetParam();
  const Input& in = Inputs()[input];
  std::string path = std::string(WORDTALLY_TEST_DATA) + "/" + in.name;
  if (!in.text.empty()) {
    path = folder.Path() + "/" + in.name;
    std::ofstream(path, std::ios::binary) << in.text;
  }
  const RunRecord oneThread = Count(path, 1, pieceBytes);
  ASSERT_GT(std::get<5>(oneThread), 0) << "the input is counted";
  EXPECT_EQ(Count(path, threads, pieceBytes), oneThread);
}

INSTANTIATE_TEST_SUITE_P(BuiltAndRealFiles, PieceCountingTest,
                         ::testing::Combine(::testing::Range<size_t>(0, Inputs().size()),
                                            ::testing::Values(64, 700, 4096),
                                            ::testing::Values(2, 3)));

// Stopped after a prefix of the pieces, the run lists what a one-thread run of those lines lists.
TEST_F(EngineTest, StoppedPiecesListWhatTheLinesBeforeTheStopGive) {
  const std::string text = DistinctWords(1500);
  const std::string whole = WriteFile("words.txt", text);
  ctx.threads = 2;
  ctx.pieceBytes = 16;
  host.onProcessEvents = [this] {
    if (host.processEventsCount == 1) ctx.run.blnStop = true;
  };
  CountFile(whole);
  const int32_t found = ctx.store.lngNumWords();
  ASSERT_LT(found, 1500) << "the run stopped";
  const AnsiString stopped = host.output;

  host.onProcessEvents = nullptr;
  ctx.threads = 1;
  CountFile(WriteFile("prefix.txt", text.substr(0, 7 * static_cast<size_t>(found))));
  EXPECT_EQ(stopped, host.output);
}

}  // namespace
}  // namespace wordtally::testing
