#include "input/file_vetting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "tests/common/scripted_host.h"
#include "tests/input/test_files.h"

namespace wordtally {
namespace {

using testing::ScriptedHost;
using testing::TestFiles;

const std::string kCrLf = "\r\n";

std::string Bytes(std::initializer_list<int> values, std::string tail = "") {
  std::string bytes;
  for (int v : values) bytes += static_cast<char>(v);
  return bytes + tail;
}

// A host and the flags CheckInputFile carries from one call to the next.
struct Vetting {
  bool Check(const std::string& path, bool skipLineEnds = false, bool ask = true) {
    return CheckInputFile(host, macShown, path, skipLineEnds, isUtf8, classCode, ask);
  }
  // "title: text" of every message shown.
  std::vector<std::string> Shown() const {
    std::vector<std::string> shown;
    for (const auto& m : host.messages) shown.push_back(m.title + ": " + m.text);
    return shown;
  }
  ScriptedHost host;
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 99;
};

// Text of the given size with a LF after every 50 characters.
std::string UnixText(std::size_t size) {
  std::string text(size, 'w');
  for (std::size_t i = 50; i < size; i += 51) text[i] = '\n';
  return text;
}

TEST(HasTextExtensionTest, KnowsTheElevenExtensions) {
  for (const char* name : {"a.txt", "B.TXT", "c.log", "d.xml", "e.htm", "f.html", "g.shtm",
                           "h.shtml", "i.xhtm", "j.xhtml", "k.csv", "l.Prn"}) {
    EXPECT_TRUE(HasTextExtension(name)) << name;
  }
  for (const char* name : {"a.dat", "a.docx", "a.php", "txt", "a.txt.bak", "a."}) {
    EXPECT_FALSE(HasTextExtension(name)) << name;
  }
}

TEST(DetectFileEncodingTest, SizesMarksRtfXmlStartsAndCharsetHints) {
  TestFiles files;
  EXPECT_EQ(DetectFileEncoding(""), -5);
  EXPECT_EQ(DetectFileEncoding(files.Path("missing.txt")), -1);
  std::filesystem::create_directory(files.Path("folder.txt"));
  EXPECT_EQ(DetectFileEncoding(files.Path("folder.txt")), -1);
  const std::string declared = "first line\r\n<meta charset=Utf-8>\r\n";
  const struct {
    const char* extension;
    std::string bytes;
    bool hints;
    int expected;
  } cases[] = {
      {".txt", "", 0, -2}, {".txt", "a", 0, -4}, {".txt", "abcd", 0, -4}, {".txt", "abcde", 0, 0},
      {".txt", "{\\rtf", 0, 6}, {".txt", "{\\RTF1", 0, 0},
      {".txt", Bytes({0xFF, 0xFE, 'a', 0, 'b', 0}), 0, 1},
      {".txt", Bytes({0xFF, 0xFE, 0, 0, 'a'}), 0, 1},
      {".txt", Bytes({0xFE, 0xFF, 0, 'a', 0}), 0, 2},
      {".dat", Bytes({0xEF, 0xBB, 0xBF}, "ab"), 0, 3},
      {".txt", Bytes({0, 0, 0xFE, 0xFF, 0}), 0, 5}, {".xml", "<?xml \xE9\xE8", 0, 3},
      {".xml", Bytes({'<', 0, '?', 0, 'x'}), 0, 1}, {".xml", Bytes({0, '<', 0, '?', 0}), 0, 2},
      {".xml", " <?xml", 0, 0}, {".txt", declared, 1, 3}, {".txt", declared, 0, 0},
      {".dat", declared, 1, 0}, {".txt", "x\ncontent=\"text/html; CHARSET=\"UTF-8\"", 1, 3},
      {".txt", "charset=utf-16 and = signs", 1, 0}, {".txt", "a dash \xE2\x80\x94 here", 1, 3},
      {".txt", "split \xE2\n\x80 pair", 1, 0},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const std::string path = files.Write(std::to_string(i) + cases[i].extension, cases[i].bytes);
    EXPECT_EQ(DetectFileEncoding(path, cases[i].hints), cases[i].expected) << "case " << i;
  }
}

struct Scan {
  int16_t code;
  unsigned char firstControlChar;
  int32_t firstControlPos;
  double controlPercent;
  bool isUtf8;
};

Scan Classify(const std::string& path, double tolerance = 0) {
  Scan scan{};
  scan.code = ClassifyTextFile(path, 16384, scan.firstControlChar, scan.firstControlPos,
                               tolerance, scan.controlPercent, scan.isUtf8, true);
  return scan;
}

TEST(ClassifyTextFileTest, LineEndingStyles) {
  TestFiles files;
  for (const auto& [bytes, code] : {std::pair<std::string, int>{"a\r\nb\nc", 1}, {"a\r\nb\r\n", 1},
                                    {"a\nb\nc", 2}, {"a\rb\rc", 3}, {"one line", 1},
                                    {Bytes({0xFF, 0xFE, 'a', 0, 'b', 0}), 7},
                                    {"{\\rtf1 x}", 6}, {"ab", -4}}) {
    EXPECT_EQ(Classify(files.Write("f.txt", bytes)).code, code) << bytes;
  }
  Scan allowed = Classify(files.Write("allowed.txt", "tab\tform\fback\bspace"));
  EXPECT_EQ(allowed.code, 1);
  EXPECT_EQ(allowed.firstControlChar, ' ');
  EXPECT_EQ(allowed.controlPercent, 0);
  Scan utf8 = Classify(files.Write("bom.txt", Bytes({0xEF, 0xBB, 0xBF}, "a\nb\x01")));
  EXPECT_EQ(utf8.code, 1);
  EXPECT_TRUE(utf8.isUtf8);
}

TEST(ClassifyTextFileTest, ControlCharacters) {
  TestFiles files;
  // A NUL at byte 100 of 5000: the scan stops at position 3277 with 1 of 3277 counted.
  std::string text(5000, 'a');
  text[99] = '\0';
  Scan early = Classify(files.Write("nul100.txt", text));
  EXPECT_EQ(early.code, 0);
  EXPECT_EQ(early.firstControlChar, 0);
  EXPECT_EQ(early.firstControlPos, 100);
  EXPECT_DOUBLE_EQ(early.controlPercent, 100.0 / 3277);

  // In a 200-byte file the whole sample decides: 1 of 200 is 0.5 percent.
  std::string shortText(200, 'b');
  shortText[10] = '\x1B';
  EXPECT_EQ(Classify(files.Write("esc.txt", shortText)).code, 0);
  Scan tolerated = Classify(files.Path("esc.txt"), 1.0);
  EXPECT_EQ(tolerated.code, 1);
  EXPECT_DOUBLE_EQ(tolerated.controlPercent, 0.5);

  // Beyond the 16384-byte sample nothing counts.
  std::string late(30000, 'c');
  late[19999] = '\x01';
  EXPECT_EQ(Classify(files.Write("late.txt", late)).code, 1);
  late[19999] = '\0';
  EXPECT_EQ(Classify(files.Write("nul20000.txt", late)).code, 1);
}

TEST(CheckInputFileTest, ProbeFailuresAreFatal) {
  TestFiles files;
  const std::string unicode = kCrLf + "is a Unicode file but not UTF-8 encoded.";
  const std::string missing = files.Path("gone.txt");
  for (const auto& [path, message] : std::initializer_list<std::pair<std::string, std::string>>{
           {missing, " not found."},
           {files.Write("empty.txt", ""), " is zero-length."},
           {files.Write("four.txt", "abcd"), kCrLf + "contains only from 1 to 4 bytes."},
           {files.Write("doc.rtf", "{\\rtf1\\ansi}"), kCrLf + "is an RTF file."},
           {files.Write("wide.txt", Bytes({0xFF, 0xFE, 0, 0, 'a', 0, 0, 0})), unicode},
           {files.Write("wide2.txt", Bytes({0, 0, 0xFE, 0xFF, 0, 0, 0, 'a'})), unicode},
           {files.Write("plain16.xml", Bytes({'<', 0, 'a', 0, '>', 0})), unicode}}) {
    Vetting v;
    v.host.SetCaption(Control::Status, "Now checking file ...");
    EXPECT_FALSE(v.Check(path));
    EXPECT_EQ(v.host.Caption(Control::Status), "");
    EXPECT_EQ(v.Shown(), std::vector<std::string>{"Fatal error: File " + path + message});
    ASSERT_FALSE(v.host.messages.empty());
    EXPECT_EQ(v.host.messages[0].icon, MessageIcon::Information);
    EXPECT_EQ(v.host.messages[0].buttons, MessageButtons::Ok);
  }
  Vetting noName;
  EXPECT_FALSE(noName.Check(""));
  EXPECT_EQ(noName.classCode, -5);
  EXPECT_TRUE(noName.host.messages.empty());
}

TEST(CheckInputFileTest, BinaryFilesAreNotText) {
  TestFiles files;
  std::string bytes(110000, 'a');
  bytes[99] = '\0';
  const std::string small = files.Write("small.dat", bytes.substr(0, 5000));
  const std::string big = files.Write("big.dat", bytes);
  const std::string verdict = kCrLf + "is not an ANSI or UTF-8 encoded text file." + kCrLf +
                              "It appears to be a binary file.";
  Vetting v;
  EXPECT_FALSE(v.Check(small));
  EXPECT_EQ(v.classCode, 0);
  EXPECT_FALSE(v.Check(big));
  EXPECT_EQ(v.Shown(),
            (std::vector<std::string>{
                "Not a text file: " + small + verdict + kCrLf + kCrLf +
                    "You could try reading it using its associated application, then copying "
                    "the text and pasting it into the textbox (then copy it to the clipboard and "
                    "select 'Clipboard' as the source).",
                "Not a text file: " + big + verdict}));
}

TEST(CheckInputFileTest, TextFilesPassUtf8IsNoticedAndTheMacNoticeComesOnce) {
  TestFiles files;
  Vetting v;
  EXPECT_TRUE(v.Check(files.Write("dos.txt", "a b\r\nc\r\n")));
  EXPECT_EQ(v.classCode, 1);
  EXPECT_FALSE(v.isUtf8);
  EXPECT_TRUE(v.Check(files.Write("u.txt", "caf\xC3\xA9 \xE2\x80\x94\n")));
  EXPECT_EQ(v.classCode, 1);
  EXPECT_TRUE(v.isUtf8);
  EXPECT_TRUE(v.host.messages.empty());

  const std::string first = files.Write("mac1.txt", "one\rtwo\r");
  EXPECT_TRUE(v.Check(first));
  EXPECT_EQ(v.classCode, 3);
  EXPECT_TRUE(v.Check(files.Write("mac2.txt", "three\rfour\r")));
  EXPECT_TRUE(v.macShown);
  EXPECT_EQ(v.Shown(), std::vector<std::string>{
                           "This is a Mac-style text file: File " + first + kCrLf +
                           "has Macintosh-type line endings (CR)." + kCrLf + kCrLf +
                           "You might wish to use a program such as Notepad++" + kCrLf +
                           "to convert the line endings to Windows-type (CR+LF)."});
}

TEST(CheckInputFileTest, LargeUnixFilesNeedConsentOrAreRefused) {
  TestFiles files;
  const std::string at256000 = files.Write("a.txt", UnixText(256000));
  const std::string over256000 = files.Write("b.txt", UnixText(256001));
  const std::string at512000 = files.Write("c.txt", UnixText(512000));
  const std::string over512000 = files.Write("d.txt", UnixText(512001));
  const std::string unix = kCrLf + "has Unix-type line endings (LF)." + kCrLf + kCrLf +
                           "The size of this file is ";
  const std::string convert = "to convert the line endings to Windows-type (CR+LF).";

  Vetting quiet;
  EXPECT_TRUE(quiet.Check(at256000));
  EXPECT_EQ(quiet.classCode, 2);
  EXPECT_TRUE(quiet.Check(over512000, true));
  EXPECT_TRUE(quiet.host.messages.empty());

  const std::string slowText = "File " + over256000 + unix + "250.00 Kb" + kCrLf +
                               "so processing of this file might be rather slow." + kCrLf + kCrLf +
                               "It is advisable to use a program such as Notepad++" + kCrLf +
                               convert;
  const std::string title = "This is a Unix-style text file";
  Vetting declines;  // the empty answer queue takes the default button, No
  EXPECT_FALSE(declines.Check(over256000));
  EXPECT_EQ(declines.classCode, 0);
  EXPECT_EQ(declines.Shown(),
            (std::vector<std::string>{
                title + ": " + slowText + kCrLf + kCrLf +
                    "Do you wish to continue processing this file?",
                title + ": Operation canceled."}));
  ASSERT_EQ(declines.host.messages.size(), 2u);
  EXPECT_EQ(declines.host.messages[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(declines.host.messages[0].defaultButton, Answer::No);
  EXPECT_EQ(declines.host.messages[1].icon, MessageIcon::None);

  Vetting accepts;
  accepts.host.answers.push_back(Answer::Yes);
  EXPECT_TRUE(accepts.Check(at512000));
  EXPECT_EQ(accepts.host.messages.size(), 1u);
  EXPECT_EQ(accepts.classCode, 2);

  Vetting informed;
  EXPECT_TRUE(informed.Check(over256000, false, false));
  EXPECT_EQ(informed.Shown(), std::vector<std::string>{"This is a Unix-style file: " + slowText});
  EXPECT_EQ(informed.host.messages[0].buttons, MessageButtons::Ok);

  Vetting refused;
  EXPECT_FALSE(refused.Check(over512000));
  EXPECT_EQ(refused.classCode, 0);
  EXPECT_EQ(refused.Shown(),
            std::vector<std::string>{
                "Cannot process this file: File " + over512000 + unix + "500.00 Kb" + kCrLf +
                "so processing of this file would take a long time." + kCrLf + kCrLf +
                "You can process this file by first using a program such as Notepad++" + kCrLf +
                convert});
}

TEST(CheckInputFileTest, PermissionDenied) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may read any file";
  TestFiles files;
  const std::string path = files.Write("locked.txt", "some text");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  EXPECT_EQ(DetectFileEncoding(path), -3);
  Vetting v;
  EXPECT_FALSE(v.Check(path));
  EXPECT_EQ(v.Shown(), std::vector<std::string>{"Fatal error: File " + path + kCrLf +
                                                " cannot be opened (permission denied)."});
}

TEST(CheckInputFileTest, LeavesNoFileOpen) {
  TestFiles files;
  std::string binary(4000, 'x');
  binary[5] = '\0';
  const auto openFiles = [] {
    auto fds = std::filesystem::directory_iterator("/proc/self/fd");
    return std::distance(begin(fds), end(fds));
  };
  const auto before = openFiles();
  for (const std::string& path :
       {files.Write("a.txt", "charset=utf-8 text"), files.Write("b.txt", "abc"),
        files.Write("c.dat", binary), files.Write("d.rtf", "{\\rtf1"),
        files.Write("e.txt", UnixText(600000)), files.Path("missing.txt")}) {
    Vetting().Check(path);
    IsZipFile(path);
  }
  EXPECT_EQ(openFiles(), before);
}

TEST(IsZipFileTest, NeedsTheSignatureAndTenBytes) {
  TestFiles files;
  EXPECT_EQ(IsZipFile(files.Path("none.docx")), -1);
  EXPECT_EQ(IsZipFile(files.Write("ten.docx", Bytes({0x50, 0x4B, 3, 4}, "123456"))), 1);
  EXPECT_EQ(IsZipFile(files.Write("nine.docx", Bytes({0x50, 0x4B, 3, 4}, "12345"))), 0);
  EXPECT_EQ(IsZipFile(files.Write("text.docx", "This is no archive at all")), 0);
  EXPECT_EQ(IsZipFile(files.Write("zero.docx", "")), 0);
}

TEST(CheckInputFileExistsTest, SizeLabelMessagesAndCurrentDirectory) {
  const std::filesystem::path saved = std::filesystem::current_path();
  TestFiles files;
  const std::filesystem::path folder = std::filesystem::canonical(files.Path(""));
  Vetting v;
  EXPECT_FALSE(CheckInputFileExists(v.host, ""));
  EXPECT_TRUE(v.host.messages.empty());

  EXPECT_TRUE(CheckInputFileExists(v.host, files.Write("two.txt", std::string(2048, 'a'))));
  EXPECT_EQ(v.host.Caption(Control::FileSize), "Filesize: 2.00 Kb");
  EXPECT_EQ(std::filesystem::current_path(), folder);
  EXPECT_TRUE(CheckInputFileExists(v.host, files.Write("small.txt", std::string(512, 'a'))));
  EXPECT_EQ(v.host.Caption(Control::FileSize), "Filesize: 512 bytes");
  EXPECT_TRUE(v.host.messages.empty());

  EXPECT_FALSE(CheckInputFileExists(v.host, files.Write("zero.txt", "")));
  EXPECT_EQ(v.host.Caption(Control::FileSize), "Filesize: 0 bytes");
  std::filesystem::current_path("/");
  EXPECT_FALSE(CheckInputFileExists(v.host, files.Path("absent.txt")));
  EXPECT_EQ(std::filesystem::current_path(), folder);
  std::filesystem::current_path(saved);

  ShowNotDocxMessage(v.host, "letter.docx");
  EXPECT_EQ(v.Shown(), (std::vector<std::string>{
                           "Empty file: Input file is zero-length.",
                           "File not found: Input file does not exist.",
                           "Not a docx file: The file letter.docx" + kCrLf +
                               "has a 'docx' extension but does not appear to be an MS Word "
                               "'docx' file."}));
  for (const auto& m : v.host.messages) EXPECT_EQ(m.icon, MessageIcon::Exclamation);
}

}  // namespace
}  // namespace wordtally
