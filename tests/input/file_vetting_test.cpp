#include "input/file_vetting.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/common/scripted_host.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {
namespace {

using FileVettingTest = InputTest;
namespace fs = std::filesystem;

std::string Bytes(std::initializer_list<int> values, std::string_view tail = "") {
  return std::string(values.begin(), values.end()).append(tail);
}

// size bytes of fill, but byte at the 1-based position.
std::string WithByteAt(std::size_t size, char fill, std::size_t position, char byte) {
  return std::string(size, fill).replace(position - 1, 1, 1, byte);
}

// Text of the given size with a LF after every 50 characters.
std::string UnixText(std::size_t size) {
  std::string text(size, 'w');
  for (std::size_t i = 50; i < size; i += 51) text[i] = '\n';
  return text;
}

// A locked file, or "" when the superuser, who may read any file, runs the tests.
std::string Locked(const std::string& path) {
  EXPECT_EQ(::chmod(path.c_str(), 0), 0);
  return ::geteuid() == 0 ? "" : path;
}

// Each message shown as "title: text" with "@" for the file's name, marked "(-) " without icon,
// "(!) " with an exclamation icon, and "(Yes/No) " as a question whose default is No. An
// information box with an OK button has no mark.
std::vector<std::string> Shown(const ScriptedHost& host, const std::string& name = "") {
  std::vector<std::string> shown;
  for (const MessageBoxRequest& m : host.messages) {
    const char* const marks[] = {"(-) ", "", "(!) "};
    const bool asksNo = m.buttons == MessageButtons::YesNo && m.defaultButton == Answer::No;
    std::string text = marks[static_cast<int>(m.icon)] + std::string(asksNo ? "(Yes/No) " : "") + m.title + ": " + m.text;
    if (const auto at = text.find(name); !name.empty() && at != std::string::npos) text.replace(at, name.size(), "@");
    shown.push_back(text);
  }
  return shown;
}

TEST_F(FileVettingTest, HasTextExtensionKnowsTheElevenExtensions) {
  for (const char* name : {"a.txt", "B.TXT", "c.log", "d.xml", "e.htm", "f.html", "g.shtm",
                           "h.shtml", "i.xhtm", "j.xhtml", "k.csv", "l.Prn"}) {
    EXPECT_TRUE(HasTextExtension(name)) << name;
  }
  for (const char* name : {"a.dat", "a.docx", "a.php", "txt", "a.txt.bak", "a."}) {
    EXPECT_FALSE(HasTextExtension(name)) << name;
  }
}

TEST_F(FileVettingTest, DetectFileEncodingSizesMarksRtfXmlStartsAndCharsetHints) {
  fs::create_directory(Path("folder.txt"));
  const std::string declared = "first line\r\n<meta charset=Utf-8>\r\n";
  const struct { std::string path; bool hints; int code; } cases[] = {
      {"", 0, -5}, {Path("missing.txt"), 0, -1}, {Path("folder.txt"), 0, -1},
      {Locked(Write("locked.txt", "some text")), 0, -3}, {Write("0.txt", ""), 0, -2},
      {Write("1.txt", "a"), 0, -4}, {Write("4.txt", "abcd"), 0, -4}, {Write("5.txt", "abcde"), 0, 0},
      {Write("r.txt", "{\\rtf"), 0, 6}, {Write("R.txt", "{\\RTF1"), 0, 0},
      {Write("le.txt", Bytes({0xFF, 0xFE, 'a', 0, 'b', 0})), 0, 1},
      {Write("le32.txt", Bytes({0xFF, 0xFE, 0, 0, 'a'})), 0, 1},
      {Write("be.txt", Bytes({0xFE, 0xFF, 0, 'a', 0})), 0, 2},
      {Write("be32.txt", Bytes({0, 0, 0xFE, 0xFF, 0})), 0, 5},
      {Write("ff.txt", Bytes({0, 0, 0, 0xFF, 0})), 0, 0},  // no mark without its first bytes
      {Write("bom.dat", Bytes({0xEF, 0xBB, 0xBF}, "ab")), 0, 3},
      {Write("a.xml", "<?xml \xE9\xE8"), 0, 3}, {Write("b.xml", Bytes({'<', 0, '?', 0, 'x'})), 0, 1},
      {Write("c.xml", Bytes({0, '<', 0, '?', 0})), 0, 2}, {Write("d.xml", " <?xml"), 0, 0},
      {Write("h.txt", declared), 1, 3}, {Path("h.txt"), 0, 0}, {Write("h.dat", declared), 1, 0},
      {Write("h2.txt", "x\ncontent=\"text/html; CHARSET=\"UTF-8\""), 1, 3},
      {Write("h3.txt", "charset=utf-16 and = signs"), 1, 0},
      {Write("h4.txt", "a dash \xE2\x80\x94 here"), 1, 3}, {Write("h5.txt", "split \xE2\n\x80"), 1, 0}};
  for (const auto& c : cases) {
    if (c.code != -3 || !c.path.empty()) {
      EXPECT_EQ(DetectFileEncoding(c.path, c.hints), c.code) << c.path;
    }
  }
}

// The class code, first control character and its position, control percentage and UTF-8 flag,
// with the 16384-byte sample that CheckInputFile uses.
TEST_F(FileVettingTest, ClassifyTextFileLineEndsAndControlCharacters) {
  const struct { std::string bytes; int code; unsigned char firstChar = ' '; int32_t firstPos = 0;
                 double percent = 0, tolerance = 0; bool utf8 = false; } cases[] = {
      {"a\r\nb\nc", 1}, {"a\r\nb\r\n", 1}, {"a\nb\nc", 2}, {"a\rb\rc", 3}, {"one line", 1},
      {Bytes({0xFF, 0xFE, 'a', 0, 'b', 0}), 7}, {"{\\rtf1 x}", 6}, {"ab", -4},
      {"tab\tform\fback\bspace", 1},
      {Bytes({0xEF, 0xBB, 0xBF}, "a\nb\x01"), 1, ' ', 0, 0, 0, true},  // UTF-8 is not scanned
      // A NUL at byte 100 of 5000: the scan stops at position 3277 with 1 of 3277 counted.
      {WithByteAt(5000, 'a', 100, '\0'), 0, 0, 100, 100.0 / 3277},
      // In a 200-byte file the whole sample decides: 1 of 200 is 0.5 percent.
      {WithByteAt(200, 'b', 11, '\x1B'), 0, 0x1B, 11, 0.5},
      {WithByteAt(200, 'b', 11, '\x1B'), 1, 0x1B, 11, 0.5, 1.0},
      // Beyond the sample nothing counts.
      {WithByteAt(30000, 'c', 20000, '\x01'), 1}, {WithByteAt(30000, 'c', 20000, '\0'), 1}};
  for (const auto& c : cases) {
    unsigned char firstChar = 0;
    int32_t firstPos = -1;
    double percent = 0;
    bool utf8 = false;
    const int code = ClassifyTextFile(Write("f.txt", c.bytes), 16384, firstChar, firstPos,
                                      c.tolerance, percent, utf8, true);
    EXPECT_EQ(std::tuple(code, firstChar, firstPos, percent, utf8),
              std::tuple(c.code, c.firstChar, c.firstPos, c.percent, c.utf8));
  }
}

// One host and one Mac-notice flag for all rows, as in one program run. Each row lists the
// messages its call shows, with "@" for the file's name.
TEST_F(FileVettingTest, CheckInputFileTellsWhyAFileCannotBeCounted) {
  const std::string over256000 = Write("b.txt", UnixText(256001));
  const std::string over512000 = Write("d.txt", UnixText(512001));
  const std::string unicode = "Fatal error: File @\r\nis a Unicode file but not UTF-8 encoded.";
  const std::string binary = "Not a text file: @\r\nis not an ANSI or UTF-8 encoded text file.\r\n"
                             "It appears to be a binary file.";
  const std::string convert = "\r\nto convert the line endings to Windows-type (CR+LF).";
  const std::string unix = "File @\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is ";
  const std::string slow = "\r\nso processing of this file might be rather slow.\r\n\r\n"
                           "It is advisable to use a program such as Notepad++" + convert;
  const std::string question = "(Yes/No) This is a Unix-style text file: " + unix;
  const std::string proceed = "\r\n\r\nDo you wish to continue processing this file?";
  const struct { std::string path; bool result; int classCode; std::vector<std::string> shown = {};
                 bool utf8 = false, skipLineEnds = false, ask = true, yes = false; } cases[] = {
      {"", false, -5}, {Path("gone.txt"), false, -1, {"Fatal error: File @ not found."}},
      {Write("empty.txt", ""), false, -2, {"Fatal error: File @ is zero-length."}},
      {Write("four.txt", "abcd"), false, -4, {"Fatal error: File @\r\ncontains only from 1 to 4 bytes."}},
      {Locked(Write("locked.txt", "text")), false, -3,
       {"Fatal error: File @\r\n cannot be opened (permission denied)."}},
      {Write("doc.rtf", "{\\rtf1\\ansi}"), false, 6, {"Fatal error: File @\r\nis an RTF file."}},
      {Write("wide.txt", Bytes({0xFF, 0xFE, 0, 0, 'a', 0, 0, 0})), false, 7, {unicode}},
      {Write("wide2.txt", Bytes({0, 0, 0xFE, 0xFF, 0, 0, 0, 'a'})), false, 7, {unicode}},
      {Write("plain16.xml", Bytes({'<', 0, 'a', 0, '>', 0})), false, 7, {unicode}},
      {Write("small.dat", WithByteAt(5000, 'a', 100, '\0')), false, 0,
       {binary + "\r\n\r\nYou could try reading it using its associated application, then copying "
                 "the text and pasting it into the textbox (then copy it to the clipboard and "
                 "select 'Clipboard' as the source)."}},
      {Write("big.dat", WithByteAt(110000, 'a', 100, '\0')), false, 0, {binary}},
      {Write("dos.txt", "a b\r\nc\r\n"), true, 1}, {Write("u.txt", "caf\xC3\xA9 \xE2\x80\x94\n"), true, 1, {}, true},
      {Write("mac1.txt", "one\rtwo\r"), true, 3,
       {"This is a Mac-style text file: File @\r\nhas Macintosh-type line endings (CR).\r\n\r\n"
        "You might wish to use a program such as Notepad++" + convert}},
      {Write("mac2.txt", "three\rfour\r"), true, 3},  // the notice comes once per run
      {Write("a.txt", UnixText(256000)), true, 2},
      {.path = over512000, .result = true, .classCode = 2, .skipLineEnds = true},
      {over256000, false, 0,
       {question + "250.00 Kb" + slow + proceed, "(-) This is a Unix-style text file: Operation canceled."}},
      {.path = Write("c.txt", UnixText(512000)), .result = true, .classCode = 2,
       .shown = {question + "500.00 Kb" + slow + proceed}, .yes = true},
      {.path = over256000, .result = true, .classCode = 2,
       .shown = {"This is a Unix-style file: " + unix + "250.00 Kb" + slow}, .ask = false},
      {over512000, false, 0,
       {"Cannot process this file: " + unix + "500.00 Kb\r\nso processing of this file would take a long time.\r\n\r\n"
        "You can process this file by first using a program such as Notepad++" + convert}}};
  const auto openFiles = [] { return std::ranges::distance(fs::directory_iterator("/proc/self/fd")); };
  const auto openBefore = openFiles();
  ScriptedHost host;
  bool macShown = false;
  for (const auto& c : cases) {
    if (c.classCode == -3 && c.path.empty()) continue;
    host.messages.clear();
    host.answers.assign(c.yes ? 1 : 0, Answer::Yes);
    host.SetCaption(Control::Status, "Now checking file ...");
    bool isUtf8 = false;
    int16_t classCode = 99;
    const bool result = CheckInputFile(host, macShown, c.path, c.skipLineEnds, isUtf8, classCode, c.ask);
    EXPECT_EQ(std::tuple(result, classCode, isUtf8, host.Caption(Control::Status), Shown(host, c.path)),
              std::tuple(c.result, c.classCode, c.utf8, "", c.shown));
  }
  EXPECT_EQ(openFiles(), openBefore);  // every path closes what it opened
}

TEST_F(FileVettingTest, IsZipFileNeedsTheSignatureAndTenBytes) {
  const std::pair<std::string, int> cases[] = {
      {Path("none.docx"), -1}, {Write("ten.docx", Bytes({0x50, 0x4B, 3, 4}, "123456")), 1},
      {Write("nine.docx", Bytes({0x50, 0x4B, 3, 4}, "12345")), 0},
      {Write("text.docx", "This is no archive at all"), 0}, {Write("zero.docx", ""), 0}};
  for (const auto& [path, code] : cases) EXPECT_EQ(IsZipFile(path), code) << path;
}

TEST_F(FileVettingTest, CheckInputFileExistsSetsTheSizeLabelAndTheCurrentDirectory) {
  const fs::path saved = fs::current_path(), folder = fs::canonical(Path(""));
  const struct { std::string path; bool exists; const char* label; } cases[] = {
      {"", false, ""}, {Write("two.txt", std::string(2048, 'a')), true, "Filesize: 2.00 Kb"},
      {Write("small.txt", std::string(512, 'a')), true, "Filesize: 512 bytes"},
      {Write("zero.txt", ""), false, "Filesize: 0 bytes"}, {Path("absent.txt"), false, "Filesize: 0 bytes"}};
  ScriptedHost host;
  for (const auto& c : cases) {
    fs::current_path("/");
    const bool exists = CheckInputFileExists(host, c.path);
    EXPECT_EQ(std::tuple(exists, host.Caption(Control::FileSize), fs::current_path()),
              std::tuple(c.exists, c.label, c.path.empty() ? fs::path("/") : folder));
  }
  fs::current_path(saved);
  ShowNotDocxMessage(host, "letter.docx");
  EXPECT_EQ(Shown(host), (std::vector<std::string>{
                             "(!) Empty file: Input file is zero-length.",
                             "(!) File not found: Input file does not exist.",
                             "(!) Not a docx file: The file letter.docx\r\nhas a 'docx' extension "
                             "but does not appear to be an MS Word 'docx' file."}));
}

}  // namespace
}  // namespace wordtally::testing
