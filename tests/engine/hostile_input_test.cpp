// Inputs that lost data, hung or exhausted memory: each is now refused before counting or counted
// in bounded memory and time, and nothing found at the output file's path is harmed.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "engine/word_filters.h"
#include "tests/common/zip_archive.h"
#include "tests/engine/engine_fixture.h"

namespace wordtally::testing {
namespace {

namespace fs = std::filesystem;
using HostileInputTest = EngineTest;

TEST_F(HostileInputTest, OutputFileRefusedBeforeCountingAndLeftAsItWas) {
  const std::string input = WriteFile("book.txt", "alpha\r\n");
  const std::string common = WriteFile("c.txt", "beta\r\n");
  fs::create_hard_link(input, PathOf("hard.txt"));
  fs::create_hard_link(common, PathOf("common.txt"));
  fs::create_directory(PathOf("folder.txt"));
  ASSERT_EQ(::mkfifo(PathOf("fi.txt").c_str(), 0600) | ::mkfifo(PathOf("rd.txt").c_str(), 0600), 0);
  const int reader = ::open(PathOf("rd.txt").c_str(), O_RDONLY | O_NONBLOCK);
  fs::create_symlink("/dev/full", PathOf("full.txt"));
  fs::create_symlink(PathOf("nothing.txt"), PathOf("dangling.txt"));
  settings.txbCommonWordsFile = common;
  for (const auto& [name, refusal] : std::initializer_list<std::pair<std::string, std::string>>{
           {"hard.txt", "Output file cannot be the same as the input file."},
           {"common.txt", "Output file cannot be the common-words file\r\n" + common},
           {"folder.txt", "it is a folder."}, {"fi.txt", "it is a pipe (FIFO)."},
           {"rd.txt", "it is a pipe (FIFO)."}, {"full.txt", "it is a device."},
           {"dangling.txt", "it is a symbolic link to a file that does not exist."}}) {
    settings.chkIgnoreCommonWords = 1;
    settings.txbFile[1] = PathOf(name);
    const fs::file_type before = fs::symlink_status(PathOf(name)).type();
    CountFile(input);
    EXPECT_THAT(host.messages.back().text, EndsWith(refusal));
    EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 0);
    EXPECT_EQ(fs::symlink_status(PathOf(name)).type(), before) << name;
  }
  ::close(reader);
  EXPECT_EQ(ReadFile(input) + ReadFile(common), "alpha\r\nbeta\r\n");
  EXPECT_FALSE(fs::exists(fs::symlink_status(PathOf("nothing.txt"))));
}

TEST_F(HostileInputTest, DocxNestedDeeperThan4000ElementsIsDamaged) {
  for (const int wrappers : {3995, 3996}) {  // document, body, p, r and t make five more
    const std::string xml = "<w:document xmlns:w=\"wordprocessingml\"><w:body><w:p>" +
                            Repeated("<w:x>", wrappers) + "<w:r><w:t>deep</w:t></w:r>" +
                            Repeated("</w:x>", wrappers) + "</w:p></w:body></w:document>";
    ASSERT_TRUE(WriteZipArchive(PathOf("deep.docx"), "word/document.xml", xml));
    CountFile(PathOf("deep.docx"));
    EXPECT_EQ(ctx.run.blnWordsGot, wrappers == 3995);
  }
  EXPECT_EQ(host.messages.back().text,
            "Invalid checksum found when processing\r\n" + PathOf("deep.docx"));
}

TEST_F(HostileInputTest, TwoGibibyteLineGivesItsWordsAndItsCommentGoesOn) {
  // On one line: words, a 2 GiB hole (NUL bytes that take no disk), a word, a comment, 20 MiB
  // more hole and a word in the comment. The type "dat" spares the file the charset search.
  const std::string path = WriteFile("huge.dat", Repeated("alpha beta ", 2000));
  constexpr int64_t kHole = int64_t{1} << 31;
  std::fstream(path, std::ios::in | std::ios::out).seekp(kHole) << " gamma // hidden";
  std::fstream(path, std::ios::in | std::ios::out).seekp(kHole + (20 << 20)) << " delta\r\n";
  host.answers = {Answer::No};  // no output file for the large input
  CountFile(path);
  std::string got;
  for (const auto& e : ctx.store.WordList().subspan(1)) got.append(e.Word) += std::to_string(e.Frequency);
  EXPECT_EQ(got, "alpha2000beta2000gamma1");
}

TEST_F(HostileInputTest, ALongListOfWordsToIgnoreIsLookedUpNotSearched) {
  std::string list = "the";  // and 300,000 words; every other word looked up is one of them
  for (int i = 0; i < 300000; ++i) list += " w" + std::to_string(i);
  settings.strWordsToIgnore = " " + list + " ";
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 40000; ++i) GetWords2(ctx, i % 2 ? "W" + std::to_string(i * 7) : "them");
  // Searching the 2 MB text for each word took minutes.
  EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), 5);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 20000);
  EXPECT_EQ(ctx.store.lngNumWords(), 1);  // "them" is not "the"
}

}  // namespace
}  // namespace wordtally::testing
