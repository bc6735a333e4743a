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

TEST(HasTextExtensionTest, KnowsTheElevenExtensions) {
  for (const char* name : {"a.txt", "B.TXT", "c.log", "d.xml", "e.htm", "f.html", "g.shtm",
                           "h.shtml", "i.xhtm", "j.xhtml", "k.csv", "l.Prn"}) {
    EXPECT_TRUE(HasTextExtension(name)) << name;
  }
  for (const char* name : {"a.dat", "a.docx", "a.php", "txt", "a.txt.bak", "a."}) {
    EXPECT_FALSE(HasTextExtension(name)) << name;
  }
}

TEST(DetectFileEncodingTest, SizesMarksAndRtf) {
  TestFiles files;
  EXPECT_EQ(DetectFileEncoding(""), -5);
  EXPECT_EQ(DetectFileEncoding(files.Path("missing.txt")), -1);
  EXPECT_EQ(DetectFileEncoding(files.Write("empty.txt", "")), -2);
  EXPECT_EQ(DetectFileEncoding(files.Write("one.txt", "a")), -4);
  EXPECT_EQ(DetectFileEncoding(files.Write("four.txt", "abcd")), -4);
  EXPECT_EQ(DetectFileEncoding(files.Write("five.txt", "abcde")), 0);
  EXPECT_EQ(DetectFileEncoding(files.Write("doc.txt", "{\\rtf")), 6);
  EXPECT_EQ(DetectFileEncoding(files.Write("doc2.txt", "{\\RTF1")), 0);
  EXPECT_EQ(DetectFileEncoding(files.Write("le.txt", Bytes({0xFF, 0xFE, 'a', 0, 'b', 0}))), 1);
  EXPECT_EQ(DetectFileEncoding(files.Write("le32.txt", Bytes({0xFF, 0xFE, 0, 0, 'a'}))), 1);
  EXPECT_EQ(DetectFileEncoding(files.Write("be.txt", Bytes({0xFE, 0xFF, 0, 'a', 0}))), 2);
  EXPECT_EQ(DetectFileEncoding(files.Write("u8.dat", Bytes({0xEF, 0xBB, 0xBF}, "ab"))), 3);
  EXPECT_EQ(DetectFileEncoding(files.Write("be32.txt", Bytes({0, 0, 0xFE, 0xFF, 0}))), 5);
  std::filesystem::create_directory(files.Path("folder.txt"));
  EXPECT_EQ(DetectFileEncoding(files.Path("folder.txt")), -1);
}

TEST(DetectFileEncodingTest, XmlStartsAndCharsetHints) {
  TestFiles files;
  EXPECT_EQ(DetectFileEncoding(files.Write("a.xml", "<?xml \xE9\xE8")), 3);
  EXPECT_EQ(DetectFileEncoding(files.Write("b.xml", Bytes({'<', 0, '?', 0, 'x'}))), 1);
  EXPECT_EQ(DetectFileEncoding(files.Write("c.xml", Bytes({0, '<', 0, '?', 0}))), 2);
  EXPECT_EQ(DetectFileEncoding(files.Write("d.xml", " <?xml")), 0);
  std::string declared = "first line\r\n<meta charset=Utf-8>\r\n";
  EXPECT_EQ(DetectFileEncoding(files.Write("a.txt", declared), true), 3);
  EXPECT_EQ(DetectFileEncoding(files.Write("b.txt", declared), false), 0);
  EXPECT_EQ(DetectFileEncoding(files.Write("a.dat", declared), true), 0);
  EXPECT_EQ(DetectFileEncoding(files.Write("c.txt", "x\ncontent=\"text/html; CHARSET=\"UTF-8\""),
                               true),
            3);
  EXPECT_EQ(DetectFileEncoding(files.Write("d.txt", "charset=utf-16 and = signs"), true), 0);
  EXPECT_EQ(DetectFileEncoding(files.Write("e.txt", "a dash \xE2\x80\x94 here"), true), 3);
  EXPECT_EQ(DetectFileEncoding(files.Write("f.txt", "split \xE2\n\x80 pair"), true), 0);
}

TEST(ClassifyTextFileTest, LineEndingStyles) {
  TestFiles files;
  EXPECT_EQ(Classify(files.Write("mixed.txt", "a\r\nb\nc")).code, 1);
  EXPECT_EQ(Classify(files.Write("dos.txt", "a\r\nb\r\n")).code, 1);
  EXPECT_EQ(Classify(files.Write("unix.txt", "a\nb\nc")).code, 2);
  EXPECT_EQ(Classify(files.Write("mac.txt", "a\rb\rc")).code, 3);
  EXPECT_EQ(Classify(files.Write("flat.txt", "one line")).code, 1);
  Scan allowed = Classify(files.Write("allowed.txt", "tab\tform\fback\bspace"));
  EXPECT_EQ(allowed.code, 1);
  EXPECT_EQ(allowed.firstControlChar, ' ');
  EXPECT_EQ(allowed.controlPercent, 0);
  Scan utf8 = Classify(files.Write("bom.txt", Bytes({0xEF, 0xBB, 0xBF}, "a\nb\x01")));
  EXPECT_EQ(utf8.code, 1);
  EXPECT_TRUE(utf8.isUtf8);
  EXPECT_EQ(Classify(files.Write("utf16.txt", Bytes({0xFF, 0xFE, 'a', 0, 'b', 0}))).code, 7);
  EXPECT_EQ(Classify(files.Write("rtf.txt", "{\\rtf1 x}")).code, 6);
  EXPECT_EQ(Classify(files.Write("tiny.txt", "ab")).code, -4);
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
  struct Case {
    std::string path;
    std::string message;
  };
  std::string missing = files.Path("gone.txt");
  std::string empty = files.Write("empty.txt", "");
  std::string four = files.Write("four.txt", "abcd");
  std::string rtf = files.Write("doc.rtf", "{\\rtf1\\ansi}");
  std::string utf32 = files.Write("wide.txt", Bytes({0xFF, 0xFE, 0, 0, 'a', 0, 0, 0}));
  std::string utf32be = files.Write("wide2.txt", Bytes({0, 0, 0xFE, 0xFF, 0, 0, 0, 'a'}));
  std::string utf16 = files.Write("plain16.xml", Bytes({'<', 0, 'a', 0, '>', 0}));
  for (const Case& c : std::initializer_list<Case>{
           {missing, "File " + missing + " not found."},
           {empty, "File " + empty + " is zero-length."},
           {four, "File " + four + kCrLf + "contains only from 1 to 4 bytes."},
           {rtf, "File " + rtf + kCrLf + "is an RTF file."},
           {utf32, "File " + utf32 + kCrLf + "is a Unicode file but not UTF-8 encoded."},
           {utf32be, "File " + utf32be + kCrLf + "is a Unicode file but not UTF-8 encoded."},
           {utf16, "File " + utf16 + kCrLf + "is a Unicode file but not UTF-8 encoded."}}) {
    ScriptedHost host;
    host.SetCaption(Control::Status, "Now checking file ...");
    bool macShown = false;
    bool isUtf8 = false;
    int16_t classCode = 99;
    EXPECT_FALSE(CheckInputFile(host, macShown, c.path, false, isUtf8, classCode, true));
    EXPECT_EQ(host.Caption(Control::Status), "");
    ASSERT_EQ(host.messages.size(), 1u) << c.path;
    EXPECT_EQ(host.messages[0].title, "Fatal error");
    EXPECT_EQ(host.messages[0].text, c.message);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Information);
    EXPECT_EQ(host.messages[0].buttons, MessageButtons::Ok);
  }
  ScriptedHost host;
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 0;
  EXPECT_FALSE(CheckInputFile(host, macShown, "", false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, -5);
  EXPECT_TRUE(host.messages.empty());
}

TEST(CheckInputFileTest, BinaryFilesAreNotText) {
  TestFiles files;
  std::string small(5000, 'a');
  small[99] = '\0';
  std::string smallPath = files.Write("small.dat", small);
  std::string big(110000, 'a');
  big[99] = '\0';
  std::string bigPath = files.Write("big.dat", big);
  const std::string advice = kCrLf + kCrLf +
                             "You could try reading it using its associated application, then "
                             "copying the text and pasting it into the textbox (then copy it to "
                             "the clipboard and select 'Clipboard' as the source).";
  const std::string verdict = kCrLf + "is not an ANSI or UTF-8 encoded text file." + kCrLf +
                              "It appears to be a binary file.";
  ScriptedHost host;
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 9;
  EXPECT_FALSE(CheckInputFile(host, macShown, smallPath, false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, 0);
  EXPECT_FALSE(CheckInputFile(host, macShown, bigPath, false, isUtf8, classCode, true));
  ASSERT_EQ(host.messages.size(), 2u);
  EXPECT_EQ(host.messages[0].title, "Not a text file");
  EXPECT_EQ(host.messages[0].text, smallPath + verdict + advice);
  EXPECT_EQ(host.messages[1].text, bigPath + verdict);
}

TEST(CheckInputFileTest, TextFilesPassAndUtf8IsNoticed) {
  TestFiles files;
  ScriptedHost host;
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 0;
  EXPECT_TRUE(CheckInputFile(host, macShown, files.Write("dos.txt", "a b\r\nc\r\n"), false,
                             isUtf8, classCode, true));
  EXPECT_EQ(classCode, 1);
  EXPECT_FALSE(isUtf8);
  EXPECT_TRUE(CheckInputFile(host, macShown, files.Write("u.txt", "caf\xC3\xA9 \xE2\x80\x94\n"),
                             false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, 1);
  EXPECT_TRUE(isUtf8);
  EXPECT_TRUE(host.messages.empty());
}

TEST(CheckInputFileTest, MacNoticeOncePerProgramRun) {
  TestFiles files;
  ScriptedHost host;
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 0;
  std::string first = files.Write("mac1.txt", "one\rtwo\r");
  EXPECT_TRUE(CheckInputFile(host, macShown, first, false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, 3);
  EXPECT_TRUE(CheckInputFile(host, macShown, files.Write("mac2.txt", "three\rfour\r"), false, isUtf8,
                             classCode, true));
  EXPECT_TRUE(macShown);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "This is a Mac-style text file");
  EXPECT_EQ(host.messages[0].text,
            "File " + first + kCrLf + "has Macintosh-type line endings (CR)." + kCrLf + kCrLf +
                "You might wish to use a program such as Notepad++" + kCrLf +
                "to convert the line endings to Windows-type (CR+LF).");
}

std::string UnixText(std::size_t size) {
  std::string text(size, 'w');
  for (std::size_t i = 50; i < size; i += 51) text[i] = '\n';
  return text;
}

TEST(CheckInputFileTest, LargeUnixFilesNeedConsentOrAreRefused) {
  TestFiles files;
  std::string at256000 = files.Write("a.txt", UnixText(256000));
  std::string over256000 = files.Write("b.txt", UnixText(256001));
  std::string at512000 = files.Write("c.txt", UnixText(512000));
  std::string over512000 = files.Write("d.txt", UnixText(512001));
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 0;

  ScriptedHost quiet;
  EXPECT_TRUE(CheckInputFile(quiet, macShown, at256000, false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, 2);
  EXPECT_TRUE(CheckInputFile(quiet, macShown, over512000, true, isUtf8, classCode, true));
  EXPECT_TRUE(quiet.messages.empty());

  const std::string slowText = "File " + over256000 + kCrLf + "has Unix-type line endings (LF)." +
                               kCrLf + kCrLf + "The size of this file is 250.00 Kb" + kCrLf +
                               "so processing of this file might be rather slow." + kCrLf +
                               kCrLf + "It is advisable to use a program such as Notepad++" +
                               kCrLf + "to convert the line endings to Windows-type (CR+LF).";
  ScriptedHost declines;  // the empty answer queue takes the default button, No
  EXPECT_FALSE(CheckInputFile(declines, macShown, over256000, false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, 0);
  ASSERT_EQ(declines.messages.size(), 2u);
  EXPECT_EQ(declines.messages[0].title, "This is a Unix-style text file");
  EXPECT_EQ(declines.messages[0].text,
            slowText + kCrLf + kCrLf + "Do you wish to continue processing this file?");
  EXPECT_EQ(declines.messages[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(declines.messages[0].defaultButton, Answer::No);
  EXPECT_EQ(declines.messages[1].title, "This is a Unix-style text file");
  EXPECT_EQ(declines.messages[1].text, "Operation canceled.");
  EXPECT_EQ(declines.messages[1].icon, MessageIcon::None);

  ScriptedHost accepts;
  accepts.answers.push_back(Answer::Yes);
  EXPECT_TRUE(CheckInputFile(accepts, macShown, at512000, false, isUtf8, classCode, true));
  EXPECT_EQ(accepts.messages.size(), 1u);
  EXPECT_EQ(classCode, 2);

  ScriptedHost informed;
  EXPECT_TRUE(CheckInputFile(informed, macShown, over256000, false, isUtf8, classCode, false));
  ASSERT_EQ(informed.messages.size(), 1u);
  EXPECT_EQ(informed.messages[0].title, "This is a Unix-style file");
  EXPECT_EQ(informed.messages[0].text, slowText);
  EXPECT_EQ(informed.messages[0].buttons, MessageButtons::Ok);

  ScriptedHost refused;
  EXPECT_FALSE(CheckInputFile(refused, macShown, over512000, false, isUtf8, classCode, true));
  EXPECT_EQ(classCode, 0);
  ASSERT_EQ(refused.messages.size(), 1u);
  EXPECT_EQ(refused.messages[0].title, "Cannot process this file");
  EXPECT_EQ(refused.messages[0].text,
            "File " + over512000 + kCrLf + "has Unix-type line endings (LF)." + kCrLf + kCrLf +
                "The size of this file is 500.00 Kb" + kCrLf +
                "so processing of this file would take a long time." + kCrLf + kCrLf +
                "You can process this file by first using a program such as Notepad++" + kCrLf +
                "to convert the line endings to Windows-type (CR+LF).");
}

TEST(CheckInputFileTest, PermissionDenied) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may read any file";
  TestFiles files;
  std::string path = files.Write("locked.txt", "some text");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  EXPECT_EQ(DetectFileEncoding(path), -3);
  ScriptedHost host;
  bool macShown = false;
  bool isUtf8 = false;
  int16_t classCode = 0;
  EXPECT_FALSE(CheckInputFile(host, macShown, path, false, isUtf8, classCode, true));
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].text,
            "File " + path + kCrLf + " cannot be opened (permission denied).");
}

int OpenFileCount() {
  int count = 0;
  for ([[maybe_unused]] auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

TEST(CheckInputFileTest, LeavesNoFileOpen) {
  TestFiles files;
  std::string binary(4000, 'x');
  binary[5] = '\0';
  std::vector<std::string> paths = {
      files.Write("a.txt", "charset=utf-8 text"), files.Write("b.txt", "abc"),
      files.Write("c.dat", binary),               files.Write("d.rtf", "{\\rtf1"),
      files.Write("e.txt", UnixText(600000)),     files.Path("missing.txt")};
  int before = OpenFileCount();
  for (const std::string& path : paths) {
    ScriptedHost host;
    bool macShown = false;
    bool isUtf8 = false;
    int16_t classCode = 0;
    CheckInputFile(host, macShown, path, false, isUtf8, classCode, true);
    IsZipFile(path);
  }
  EXPECT_EQ(OpenFileCount(), before);
}

TEST(IsZipFileTest, NeedsTheSignatureAndTenBytes) {
  TestFiles files;
  EXPECT_EQ(IsZipFile(files.Path("none.docx")), -1);
  EXPECT_EQ(IsZipFile(files.Write("ten.docx", Bytes({0x50, 0x4B, 3, 4}, "123456"))), 1);
  EXPECT_EQ(IsZipFile(files.Write("nine.docx", Bytes({0x50, 0x4B, 3, 4}, "12345"))), 0);
  EXPECT_EQ(IsZipFile(files.Write("text.docx", "This is no archive at all")), 0);
  EXPECT_EQ(IsZipFile(files.Write("zero.docx", "")), 0);
}

class CurrentDirectoryGuard {
 public:
  CurrentDirectoryGuard() : saved_(std::filesystem::current_path()) {}
  ~CurrentDirectoryGuard() { std::filesystem::current_path(saved_); }

 private:
  std::filesystem::path saved_;
};

TEST(CheckInputFileExistsTest, SizeLabelMessagesAndCurrentDirectory) {
  CurrentDirectoryGuard guard;
  TestFiles files;
  std::filesystem::path folder = std::filesystem::canonical(files.Path(""));
  ScriptedHost host;
  EXPECT_FALSE(CheckInputFileExists(host, ""));
  EXPECT_TRUE(host.messages.empty());

  EXPECT_TRUE(CheckInputFileExists(host, files.Write("two.txt", std::string(2048, 'a'))));
  EXPECT_EQ(host.Caption(Control::FileSize), "Filesize: 2.00 Kb");
  EXPECT_EQ(std::filesystem::current_path(), folder);
  EXPECT_TRUE(CheckInputFileExists(host, files.Write("small.txt", std::string(512, 'a'))));
  EXPECT_EQ(host.Caption(Control::FileSize), "Filesize: 512 bytes");
  EXPECT_TRUE(host.messages.empty());

  EXPECT_FALSE(CheckInputFileExists(host, files.Write("zero.txt", "")));
  EXPECT_EQ(host.Caption(Control::FileSize), "Filesize: 0 bytes");
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "Empty file");
  EXPECT_EQ(host.messages[0].text, "Input file is zero-length.");
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);

  std::filesystem::current_path("/");
  EXPECT_FALSE(CheckInputFileExists(host, files.Path("absent.txt")));
  ASSERT_EQ(host.messages.size(), 2u);
  EXPECT_EQ(host.messages[1].title, "File not found");
  EXPECT_EQ(host.messages[1].text, "Input file does not exist.");
  EXPECT_EQ(host.messages[1].icon, MessageIcon::Exclamation);
  EXPECT_EQ(std::filesystem::current_path(), folder);
}

TEST(ShowNotDocxMessageTest, NamesTheFile) {
  ScriptedHost host;
  ShowNotDocxMessage(host, "letter.docx");
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].text,
            "The file letter.docx" + kCrLf +
                "has a 'docx' extension but does not appear to be an MS Word 'docx' file.");
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
}

}  // namespace
}  // namespace wordtally
