#include "input/file_vetting.h"

#include "tests/common/scripted_host.h"
#include "tests/input/input_test.h"

namespace wordtally::testing {

using FileVettingTest = InputTest;
using namespace std::string_literals;
namespace fs = std::filesystem;

// size bytes of fill, but byte at the 1-based position.
static std::string WithByteAt(std::size_t size, char fill, std::size_t position, char byte) {
  return std::string(size, fill).replace(position - 1, 1, 1, byte);
}

// Each message shown as "title: text", marked "(-) " without icon, "(!) " with an exclamation
// icon, and "(Yes/No) " as a question whose default is No; an information box with OK: no mark.
static std::vector<std::string> Shown(const ScriptedHost& host) {
  std::vector<std::string> shown;
  for (const MessageBoxRequest& m : host.messages) {
    const char* const marks[] = {"(-) ", "", "(!) "};
    const bool asksNo = m.buttons == MessageButtons::YesNo && m.defaultButton == Answer::No;
    shown.push_back(marks[static_cast<int>(m.icon)] + (asksNo ? "(Yes/No) "s : "") + m.title +
                    ": " + m.text);
  }
  return shown;
}

// The eleven text extensions; the probe: sizes, marks, RTF, starts of xml files, charset hints.
TEST_F(FileVettingTest, ProbeKnowsTheTextExtensionsAndDetectsTheEncoding) {
  for (const char* name : {"a.txt", "B.TXT", "c.log", "d.xml", "e.htm", "f.html", "g.shtm",
                           "h.shtml", "i.xhtm", "j.xhtml", "k.csv", "l.Prn"}) {
    EXPECT_TRUE(HasTextExtension(name)) << name;
  }
  for (const char* name : {"a.dat", "txt", "a.txt.bak", "a."}) EXPECT_FALSE(HasTextExtension(name));
  fs::create_directory("folder.txt");
  const std::string declared = "first line\r\n<meta charset=Utf-8>\r\n";
  const struct { std::string name; bool hints; int code; } cases[] = {
      // FF at the fourth byte is no UTF-32 mark without the three bytes before it.
      {"", 0, -5}, {"folder.txt", 0, -1}, {Locked(Write("locked.txt", "some text")), 0, -3},
      {Write("1.txt", "a"), 0, -4}, {Write("5.txt", "abcde"), 0, 0},
      {Write("r.txt", "{\\rtf"), 0, 6}, {Write("R.txt", "{\\RTF1"), 0, 0},
      {Write("le.txt", "\xFF\xFE" "a\0b\0"s), 0, 1}, {Write("le32.txt", "\xFF\xFE\0\0a"s), 0, 1},
      {Write("be.txt", "\xFE\xFF\0a\0"s), 0, 2}, {Write("be32.txt", "\0\0\xFE\xFF\0"s), 0, 5},
      {Write("ff.txt", "\0\0\0\xFF\0"s), 0, 0}, {Write("bom.dat", "\xEF\xBB\xBF" "ab"), 0, 3},
      {Write("a.xml", "<?xml \xE9\xE8"), 0, 3}, {Write("b.xml", "<\0?\0x"s), 0, 1},
      {Write("c.xml", "\0<\0?\0"s), 0, 2}, {Write("d.xml", " <?xml"), 0, 0},
      {Write("h.txt", declared), 1, 3}, {"h.txt", 0, 0}, {Write("h.dat", declared), 1, 0},
      {Write("h2.txt", "x\ncontent=\"x; CHARSET=\"UTF-8\""), 1, 3},
      {Write("h3.txt", "charset=utf-16 and = signs"), 1, 0},
      {Write("h4.txt", "a \xE2\x80\x94 b"), 1, 3}, {Write("h5.txt", "cut \xE2\n\x80"), 1, 0}};
  for (const auto& c : cases) {
    if (c.code == -3 && c.name.empty()) continue;
    EXPECT_EQ(DetectFileEncoding(c.name, c.hints), c.code) << c.name;
  }
}

// The verdict of the whole-file search is kept for the file as it was searched, not past a change.
TEST_F(FileVettingTest, CharsetHintSearchFollowsTheFileAsItChanges) {
  for (const auto& [text, code] : {std::pair{"plain words\r\n", 0}, {"a <meta charset=utf-8>", 3},
                                   {"plain again", 0}, {"plain again \xE2\x80\x94", 3}}) {
    EXPECT_EQ(DetectFileEncoding(Write("same.txt", text), true), code) << text;
    EXPECT_EQ(DetectFileEncoding("same.txt", true), code) << text;
  }
}

// A large file is searched in two parts side by side: a hint is found in either, and also where
// it crosses from the first part into the second.
TEST_F(FileVettingTest, CharsetHintIsFoundInEveryPartOfALargeFile) {
  const std::size_t size = std::size_t{8} << 20, middle = size / 2;
  const std::string plain(size, 'x');
  const auto withAt = [&plain](std::size_t at, std::string_view hint) {
    return std::string(plain).replace(at, hint.size(), hint);
  };
  const struct { std::string bytes; bool utf8; } cases[] = {
      {plain, false},
      {withAt(10, "charset=utf-8"), true},
      {withAt(size - 13, "charset=utf-8"), true},
      {withAt(middle - 7, "charset=\"utf-8\""), true},
      {withAt(middle - 1, "\xE2\x80"), true},
      {withAt(middle - 1, "\xE2 \x80"), false}};
  int file = 0;
  for (const auto& c : cases) {
    const std::string name = Write("large" + std::to_string(++file) + ".txt", c.bytes);
    EXPECT_EQ(IsDetectedAsUtf8(name, TextRules::Classic, 2), c.utf8) << name;
  }
}

// The class code, first control character and its position, control percentage and UTF-8 flag,
// with the 16384-byte sample that CheckInputFile uses.
TEST_F(FileVettingTest, ClassifyTextFileLineEndsAndControlCharacters) {
  const struct { std::string bytes; int code; unsigned char firstChar = ' '; int32_t firstPos = 0;
                 double percent = 0, tolerance = 0; bool utf8 = false; } cases[] = {
      {"a\r\nb\nc", 1}, {"a\nb\nc", 2}, {"a\rb\rc", 3}, {"one line", 1}, {"ab", -4},
      {"tab\tform\fback\bspace", 1},
      {"\xEF\xBB\xBF" "a\nb\x01", 1, ' ', 0, 0, 0, true},  // UTF-8 is not scanned
      // A NUL at byte 100 of 5000: the scan stops at position 3277 with 1 of 3277 counted.
      {WithByteAt(5000, 'a', 100, '\0'), 0, 0, 100, 100.0 / 3277},
      // In a 200-byte file the whole sample decides: 1 of 200 is 0.5 percent.
      {WithByteAt(200, 'b', 11, '\x1B'), 0, 0x1B, 11, 0.5},
      {WithByteAt(200, 'b', 11, '\x1B'), 1, 0x1B, 11, 0.5, 1.0},
      // Beyond the sample nothing counts.
      {WithByteAt(30000, 'c', 20000, '\x01'), 1}};
  for (const auto& c : cases) {
    std::tuple<int, unsigned char, int32_t, double, bool> scan{99, 0, -1, 0, false};
    auto& [code, firstChar, firstPos, percent, utf8] = scan;
    code = ClassifyTextFile(Write("f.txt", c.bytes), 16384, firstChar, firstPos, c.tolerance,
                            percent, utf8, true);
    EXPECT_EQ(scan, std::tuple(c.code, c.firstChar, c.firstPos, c.percent, c.utf8));
  }
}

// One host and one Mac-notice flag for all rows, as in one program run; each row lists the
// messages its call shows. LF-only files are named by their sizes; lf is the middle of their
// messages.
TEST_F(FileVettingTest, CheckInputFileTellsWhyAFileCannotBeCounted) {
  for (int size : {256000, 256001, 512000, 512001}) {
    Write(std::to_string(size) + ".txt", WithByteAt(size, 'w', 50, '\n'));
  }
  const auto unicode = "\r\nis a Unicode file but not UTF-8 encoded."s;
  const auto binary =
      "\r\nis not an ANSI or UTF-8 encoded text file.\r\nIt appears to be a binary file."s;
  const auto convert = "\r\nto convert the line endings to Windows-type (CR+LF)."s;
  const auto lf = ".txt\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is "s;
  const auto slow = "\r\nso processing of this file might be rather slow.\r\n\r\nIt is advisable "
                    "to use a program such as Notepad++" + convert;
  const auto ask = "(Yes/No) This is a Unix-style text file: File "s;
  const auto proceed = "\r\n\r\nDo you wish to continue processing this file?"s;
  const struct { std::string name; bool result; int classCode; std::vector<std::string> shown = {};
                 bool utf8 = false, skipLineEnds = false, ask = true, yes = false; } cases[] = {
      {"", false, -5}, {"gone.txt", false, -1, {"Fatal error: File gone.txt not found."}},
      {Write("0.txt", ""), false, -2, {"Fatal error: File 0.txt is zero-length."}},
      {Write("4.txt", "abcd"), false, -4,
       {"Fatal error: File 4.txt\r\ncontains only from 1 to 4 bytes."}},
      {Locked(Write("locked.txt", "text")), false, -3,
       {"Fatal error: File locked.txt\r\n cannot be opened (permission denied)."}},
      {Write("a.rtf", "{\\rtf1\\ansi}"), false, 6, {"Fatal error: File a.rtf\r\nis an RTF file."}},
      {Write("le.txt", "\xFF\xFE\0\0a\0\0\0"s), false, 7, {"Fatal error: File le.txt" + unicode}},
      {Write("be.txt", "\0\0\xFE\xFF\0\0\0a"s), false, 7, {"Fatal error: File be.txt" + unicode}},
      {Write("small.dat", WithByteAt(5000, 'a', 100, '\0')), false, 0,
       {"Not a text file: small.dat" + binary + "\r\n\r\nYou could try reading it using its "
        "associated application, then copying the text and pasting it into the textbox (then "
        "copy it to the clipboard and select 'Clipboard' as the source)."}},
      {Write("big.dat", WithByteAt(110000, 'a', 100, '\0')), false, 0,
       {"Not a text file: big.dat" + binary}},
      {Write("crlf.txt", "a\r\nb\r\n"), true, 1},
      {Write("u.txt", "\xE2\x80\x94 a"), true, 1, {}, true},
      {Write("mac1.txt", "one\rtwo\r"), true, 3,
       {"This is a Mac-style text file: File mac1.txt\r\nhas Macintosh-type line endings (CR)."
        "\r\n\r\nYou might wish to use a program such as Notepad++" + convert}},
      {Write("mac2.txt", "three\rfour\r"), true, 3},  // the notice comes once per run
      {"256000.txt", true, 2}, {"512001.txt", true, 2, {}, false, /*skipLineEnds=*/true},
      {"256001.txt", false, 0,
       {ask + "256001" + lf + "250.00 Kb" + slow + proceed,
        "(-) This is a Unix-style text file: Operation canceled."}},
      {"512000.txt", true, 2, {ask + "512000" + lf + "500.00 Kb" + slow + proceed}, false,
       false, true, /*yes=*/true},
      {"256001.txt", true, 2, {"This is a Unix-style file: File 256001" + lf + "250.00 Kb" + slow},
       false, false, /*ask=*/false},
      {"512001.txt", false, 0,
       {"Cannot process this file: File 512001" + lf + "500.00 Kb\r\nso processing of this "
        "file would take a long time.\r\n\r\nYou can process this file by first using a program "
        "such as Notepad++" + convert}}};
  const auto fds = [] { return std::ranges::distance(fs::directory_iterator("/proc/self/fd")); };
  const auto fdsBefore = fds();
  ScriptedHost host;
  bool macShown = false;
  for (const auto& c : cases) {
    if (c.classCode == -3 && c.name.empty()) continue;
    host.messages.clear();
    host.answers.assign(c.yes ? 1 : 0, Answer::Yes);
    host.SetCaption(Control::Status, "Now checking file ...");
    bool isUtf8 = false;
    int16_t code = 99;
    const bool result = CheckInputFile(host, macShown, c.name, c.skipLineEnds, isUtf8, code, c.ask);
    EXPECT_EQ(std::tuple(result, code, isUtf8, host.Caption(Control::Status), Shown(host)),
              std::tuple(c.result, c.classCode, c.utf8, "", c.shown));
  }
  EXPECT_EQ(fds(), fdsBefore);  // every path closes the files it opened
}

// The checks of a chosen file: a docx file needs the zip signature and ten bytes; other files
// set the size label and the current directory.
TEST_F(FileVettingTest, ChosenFileChecks) {
  const std::pair<std::string, int> zipCases[] = {
      {"none.docx", -1}, {Write("ten.docx", "PK\3\4" "123456"), 1},
      {Write("nine.docx", "PK\3\4" "12345"), 0}, {Write("text.docx", "This is no archive"), 0},
      {Write("zero.docx", ""), 0}};
  for (const auto& [name, code] : zipCases) EXPECT_EQ(IsZipFile(name), code) << name;
  const fs::path folder = fs::current_path();
  const struct { std::string name; bool exists; const char* label; } cases[] = {
      {"", false, ""}, {Write("two.txt", std::string(2048, 'a')), true, "Filesize: 2.00 Kb"},
      {Write("0.txt", ""), false, "Filesize: 0 bytes"}, {"none.txt", false, "Filesize: 0 bytes"}};
  ScriptedHost host;
  for (const auto& c : cases) {
    fs::current_path("/");
    const bool exists = CheckInputFileExists(host, c.name.empty() ? "" : folder / c.name);
    EXPECT_EQ(std::tuple(exists, host.Caption(Control::FileSize), fs::current_path()),
              std::tuple(c.exists, c.label, c.name.empty() ? fs::path("/") : folder));
  }
  ShowNotDocxMessage(host, "letter.docx");
  EXPECT_EQ(Shown(host), (std::vector<std::string>{
                             "(!) Empty file: Input file is zero-length.",
                             "(!) File not found: Input file does not exist.",
                             "(!) Not a docx file: The file letter.docx\r\nhas a 'docx' extension "
                             "but does not appear to be an MS Word 'docx' file."}));
}

}  // namespace wordtally::testing
