// Whole desktop runs against the command line on one input file. The real main window, on Qt's
// offscreen platform, is driven as a user drives it: input and output file typed, "Count words"
// pressed, message boxes answered with their default button. It counts once with the default
// settings (words displayed as found) and once with "Don't display words as found" ticked; the
// command line counts the same file with the same options into an output file of its own.
//
//   bench_desktop_run FILE [RUNS]      (RUNS rounds of all three, default 5)
//
// For example the 43 MB input with CR LF line ends, ten copies of the King James Bible:
//   for i in 1 2 3 4 5 6 7 8 9 10; do cat kjvbible.txt; done | sed 's/$/\r/' > kjv10.txt
//
// Prints the medians of each (wall time, and processor time, which a busy machine disturbs less),
// the desktop/command-line ratios of the medians; for the desktop runs the longest wait between
// two turns of the event loop and between two ticks of the elapsed time, and the longest listing
// phase; and whether the two programs wrote the same output file. The command line is timed as a
// whole process, the desktop from the press of the button until the window has painted the end
// of the run.
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>
#include <vector>

#include "engine/program_texts.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"

namespace {

using wordtally::AnsiString;
using wordtally::MessageBoxRequest;
using wordtally::ui::MainWindow;
using wordtally::ui::QtHost;

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const size_t n = values.size();
  return n % 2 == 1 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Processor time (user and system) of this process, or of its finished children, in seconds.
double ProcessorSeconds(int who) {
  rusage usage{};
  getrusage(who, &usage);
  const auto seconds = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Timing {
  double wall = 0;       // seconds
  double processor = 0;  // seconds
};

// Times what happens between its construction and Stop(); who: RUSAGE_SELF or RUSAGE_CHILDREN.
class Stopwatch {
 public:
  explicit Stopwatch(int who) : who_(who), processorAtStart_(ProcessorSeconds(who)) {
    clock_.start();
  }
  Timing Stop() const {
    return {static_cast<double>(clock_.nsecsElapsed()) / 1e9,
            ProcessorSeconds(who_) - processorAtStart_};
  }
  qint64 ElapsedNs() const { return clock_.nsecsElapsed(); }

 private:
  int who_;
  double processorAtStart_;
  QElapsedTimer clock_;
};

// The command line counting input into output, listing to nowhere.
Timing TimeCommandLine(const QString& program, const QString& input, const QString& output) {
  QProcess process;
  process.setStandardOutputFile(QProcess::nullDevice());
  const Stopwatch stopwatch(RUSAGE_CHILDREN);
  process.start(program, {"--output", output, input});
  process.waitForFinished(-1);
  const Timing timing = stopwatch.Stop();
  if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    std::fprintf(stderr, "the command line failed: %s\n",
                 qPrintable(process.readAllStandardError()));
  }
  return timing;
}

// One desktop run, and the worst of several.
struct DesktopRun {
  Timing timing;
  double longestTurnGapMs = 0;  // also from the press to the first turn and from the last one
  double longestTickGapMs = 0;  // between elapsed-time ticks, from the press; 0: no tick
  double listingMs = 0;         // from the last turn while counting to the end of the run

  void TakeWorst(const DesktopRun& run) {
    longestTurnGapMs = std::max(longestTurnGapMs, run.longestTurnGapMs);
    longestTickGapMs = std::max(longestTickGapMs, run.longestTickGapMs);
    listingMs = std::max(listingMs, run.listingMs);
  }
};

// The main window with a fresh state file; remembers the titles of the boxes it answered.
class Desktop {
 public:
  explicit Desktop(const QString& stateFile) : window_(stateFile) {
    window_.host().SetAnswerProvider([this](const MessageBoxRequest& request) {
      titles_.insert(request.title);
      return request.defaultButton;
    });
    window_.show();
    window_.Start();
    QCoreApplication::processEvents();  // on the screen before the first press, as for a user
    // A zero-interval timer fires at every turn of the event loop.
    probe_.setInterval(0);
    QObject::connect(&probe_, &QTimer::timeout, [this] { NoteTurn(); });
    QObject::connect(&window_.host(), &QtHost::timerTicked, [this] { NoteTick(); });
  }

  void SetFiles(const QString& input, const QString& output) {
    Type("txbFile0", input);
    Type("txbFile1", output);
  }

  DesktopRun Run(bool echo) {
    auto* suppress = window_.findChild<QCheckBox*>("chkSuppressWords");
    if (suppress->isChecked() == echo) suppress->click();  // a run may have ticked it
    run_ = DesktopRun{};
    lastTurnNs_ = lastTickNs_ = lastCountingTurnNs_ = 0;
    probe_.start();
    stopwatch_.emplace(RUSAGE_SELF);
    window_.findChild<QPushButton*>("cmdCount")->click();
    QCoreApplication::processEvents();  // the window shows the run's end
    NoteTurn();
    probe_.stop();
    run_.timing = stopwatch_->Stop();
    run_.listingMs = static_cast<double>(lastTurnNs_ - lastCountingTurnNs_) / 1e6;
    return run_;
  }

  const std::set<AnsiString>& AnsweredTitles() const { return titles_; }

 private:
  void Type(const char* box, const QString& text) {
    auto* edit = window_.findChild<QLineEdit*>(box);
    edit->setText(text);
    emit edit->editingFinished();
  }
  // Notes the wait since the last; returns the time now.
  qint64 Note(qint64& last, double& longestMs) const {
    const qint64 now = stopwatch_->ElapsedNs();
    longestMs = std::max(longestMs, static_cast<double>(now - last) / 1e6);
    return last = now;
  }
  void NoteTurn() {
    const qint64 now = Note(lastTurnNs_, run_.longestTurnGapMs);
    const QString caption = window_.findChild<QPushButton*>("cmdCount")->text();
    if (caption == wordtally::ui::ToQString(wordtally::texts::kStop)) lastCountingTurnNs_ = now;
  }
  void NoteTick() {
    if (stopwatch_ && probe_.isActive()) Note(lastTickNs_, run_.longestTickGapMs);
  }

  MainWindow window_;
  QTimer probe_;
  std::optional<Stopwatch> stopwatch_;
  DesktopRun run_;
  qint64 lastTurnNs_ = 0, lastTickNs_ = 0, lastCountingTurnNs_ = 0;
  std::set<AnsiString> titles_;
};

QByteArray ReadBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Timing Medians(const std::vector<Timing>& timings) {
  std::vector<double> wall, processor;
  for (const Timing& t : timings) {
    wall.push_back(t.wall);
    processor.push_back(t.processor);
  }
  return {Median(wall), Median(processor)};
}

// The medians, and their ratios to those of the reference when there is one.
void PrintRow(const char* label, const Timing& median, const Timing* reference) {
  std::printf("%-34s wall %7.3f s   processor %7.3f s", label, median.wall, median.processor);
  if (reference) {
    std::printf("   ratios %5.2f  %5.2f", median.wall / reference->wall,
                median.processor / reference->processor);
  }
  std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: bench_desktop_run FILE [RUNS]\n");
    return 2;
  }
  const QString input = QFile::decodeName(argv[1]);
  const int runs = argc == 3 ? std::max(1, std::atoi(argv[2])) : 5;
  const QString commandLine = QCoreApplication::applicationDirPath() + "/wordtally";
  QTemporaryDir scratch;
  const QString cliOutput = scratch.filePath("cli.txt");
  const QString desktopOutput = scratch.filePath("gui.txt");

  Desktop desktop(scratch.filePath("qzl.usr"));
  desktop.SetFiles(input, desktopOutput);
  ReadBytes(input);  // into the page cache before the first timed run

  std::vector<Timing> cli, timings[2];  // [1]: words displayed as found
  DesktopRun worst;
  for (int round = 0; round < runs; ++round) {
    cli.push_back(TimeCommandLine(commandLine, input, cliOutput));
    for (const bool echo : {true, false}) {
      const DesktopRun run = desktop.Run(echo);
      timings[echo].push_back(run.timing);
      worst.TakeWorst(run);
    }
  }

  std::printf("%s, %lld bytes, %d rounds (medians; ratios of wall and processor time)\n", argv[1],
              static_cast<long long>(QFile(input).size()), runs);
  const Timing reference = Medians(cli);
  PrintRow("command line", reference, nullptr);
  PrintRow("desktop, words displayed as found", Medians(timings[1]), &reference);
  PrintRow("desktop, words not displayed", Medians(timings[0]), &reference);
  std::printf("longest wait between two event-loop turns: %.1f ms\n", worst.longestTurnGapMs);
  if (worst.longestTickGapMs > 0) {
    std::printf("longest wait for the elapsed time to tick: %.1f ms\n", worst.longestTickGapMs);
  }
  std::printf("longest listing phase (from the last turn while counting): %.1f ms\n",
              worst.listingMs);
  std::printf("output files %s\n",
              ReadBytes(cliOutput) == ReadBytes(desktopOutput) ? "identical" : "DIFFER");
  for (const AnsiString& title : desktop.AnsweredTitles()) {
    std::printf("answered a message box titled \"%s\"\n", title.c_str());
  }
  return 0;
}
