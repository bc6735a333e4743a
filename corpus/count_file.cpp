// Count files: UTF-8 text, one record per line, fields separated by tabs. The layout is described
// in docs/count-file-format.md.
#include "corpus/count_file.h"

#include <charconv>
#include <fstream>
#include <iterator>

#include "input/byte_file.h"

namespace wordtally {
namespace {

constexpr std::string_view kSignature = "#wordtally-counts ";
constexpr std::string_view kVersion = "1";

// Backslash, tab, line feed and carriage return become \\, \t, \n and \r.
void AppendEscaped(std::string& out, std::string_view text) {
  for (char c : text) {
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\t': out += "\\t"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      default: out += c;
    }
  }
}

bool Unescape(std::string_view text, std::string& out) {
  out.clear();
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
      continue;
    }
    if (++i == text.size()) return false;
    switch (text[i]) {
      case '\\': out += '\\'; break;
      case 't': out += '\t'; break;
      case 'n': out += '\n'; break;
      case 'r': out += '\r'; break;
      default: return false;
    }
  }
  return true;
}

}  // namespace

std::string CountFileText(const CorpusCounts& counts) {
  std::string out;
  out.reserve(64 + counts.words.size() * 24);
  out.append(kSignature).append(kVersion) += '\n';
  for (const auto& [name, value] : counts.settings) {
    out += "setting\t";
    AppendEscaped(out, name);
    out += '\t';
    AppendEscaped(out, AnsiToUtf8(value));
    out += '\n';
  }
  for (const CountedFile& file : counts.files) {
    out += "file\t";
    AppendEscaped(out, file.path);
    out += '\t' + std::to_string(file.size) + '\t' + std::to_string(file.modifiedSeconds) + '\n';
  }
  out += "totals\t" + std::to_string(counts.totalOccurrences) + '\t' +
         std::to_string(counts.wordsIgnored) + '\n';
  out += "words\t" + std::to_string(counts.words.size()) + '\n';
  for (const CorpusWord& word : counts.words) {
    AppendEscaped(out, AnsiToUtf8(word.word));
    out += '\t' + std::to_string(word.frequency);
    for (const FileCount& c : word.perFile) {
      out += '\t' + std::to_string(c.file) + ':' + std::to_string(c.count);
    }
    out += '\n';
  }
  return out;
}

namespace {

// Splits a line at its tabs.
std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> fields;
  for (size_t start = 0;;) {
    const size_t tab = line.find('\t', start);
    fields.push_back(line.substr(start, tab - start));
    if (tab == std::string_view::npos) return fields;
    start = tab + 1;
  }
}

template <typename Int>
bool ParseNumber(std::string_view text, Int& value) {
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size();
}

// Reads the lines of a count file one after another; each Read* returns false when the line
// does not have its kind's form.
class CountFileParser {
 public:
  explicit CountFileParser(CorpusCounts& counts) : counts_(counts) {}

  bool ReadLine(std::string_view line) {
    const std::vector<std::string_view> fields = Fields(line);
    if (wordsExpected_ >= 0) return ReadWord(fields);
    if (fields[0] == "setting" && fields.size() == 3) return ReadSetting(fields);
    if (fields[0] == "file" && fields.size() == 4) return ReadFile(fields);
    if (fields[0] == "totals" && fields.size() == 3) {
      return ParseNumber(fields[1], counts_.totalOccurrences) &&
             ParseNumber(fields[2], counts_.wordsIgnored);
    }
    return fields[0] == "words" && fields.size() == 2 && ParseNumber(fields[1], wordsExpected_) &&
           wordsExpected_ >= 0;
  }

  bool Complete() const {
    return wordsExpected_ >= 0 && counts_.words.size() == static_cast<size_t>(wordsExpected_);
  }

 private:
  bool ReadSetting(const std::vector<std::string_view>& fields) {
    std::string name, value;
    if (!Unescape(fields[1], name) || !Unescape(fields[2], value)) return false;
    counts_.settings.emplace_back(std::move(name), Utf8ToAnsiText(value));
    return true;
  }

  bool ReadFile(const std::vector<std::string_view>& fields) {
    CountedFile file;
    if (!Unescape(fields[1], file.path) || !ParseNumber(fields[2], file.size) ||
        !ParseNumber(fields[3], file.modifiedSeconds)) {
      return false;
    }
    counts_.files.push_back(std::move(file));
    return true;
  }

  // A word line: its word after the last one, a frequency that its per-file counts add up to,
  // and those counts in ascending order of known files.
  bool ReadWord(const std::vector<std::string_view>& fields) {
    CorpusWord word;
    std::string utf8;
    if (fields.size() < 3 || !Unescape(fields[0], utf8) || !ParseNumber(fields[1], word.frequency)) {
      return false;
    }
    word.word = Utf8ToAnsiText(utf8);
    if (!counts_.words.empty() && !LessCodeUnits(counts_.words.back().word, word.word)) {
      return false;
    }
    int64_t sum = 0;
    for (size_t i = 2; i < fields.size(); ++i) {
      FileCount count;
      const size_t colon = fields[i].find(':');
      if (colon == std::string_view::npos || !ParseNumber(fields[i].substr(0, colon), count.file) ||
          !ParseNumber(fields[i].substr(colon + 1), count.count) || count.count <= 0 ||
          count.file < (word.perFile.empty() ? 0 : word.perFile.back().file + 1) ||
          count.file >= static_cast<int32_t>(counts_.files.size())) {
        return false;
      }
      sum += count.count;
      word.perFile.push_back(count);
    }
    if (sum != word.frequency || counts_.words.size() >= static_cast<size_t>(wordsExpected_)) {
      return false;
    }
    counts_.words.push_back(std::move(word));
    return true;
  }

  CorpusCounts& counts_;
  int64_t wordsExpected_ = -1;  // set by the "words" line, after which every line is a word
};

bool ReadWhole(const std::string& path, std::string& text) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  text.assign(std::istreambuf_iterator<char>(file), {});
  return !file.bad();
}

}  // namespace

bool IsCountFile(const std::string& path) {
  // Every file of a corpus is asked, so a plain descriptor rather than a stream.
  ByteFile file;
  char start[kSignature.size()];
  return file.Open(path) == 0 && file.Read(start, sizeof start) == std::ssize(start) &&
         std::string_view(start, sizeof start) == kSignature;
}

bool WriteCountFile(const std::string& path, const CorpusCounts& counts, std::string& error) {
  const std::string text = CountFileText(counts);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (file.write(text.data(), static_cast<std::streamsize>(text.size())) && file.flush()) {
    return true;
  }
  error = "The count file " + path + " could not be written.";
  return false;
}

bool ReadCountFile(const std::string& path, CorpusCounts& counts, std::string& error) {
  std::string text;
  if (!ReadWhole(path, text)) {
    error = "The count file " + path + " could not be read.";
    return false;
  }
  return ParseCountFileText(text, path, counts, error);
}

bool ParseCountFileText(std::string_view text, const std::string& source, CorpusCounts& counts,
                        std::string& error) {
  counts = CorpusCounts{};
  std::string_view rest = text;
  const size_t firstEnd = rest.find('\n');
  if (rest.substr(0, firstEnd) != std::string(kSignature) + std::string(kVersion)) {
    error = source + " is not a count file of version " + std::string(kVersion) + ".";
    return false;
  }
  CountFileParser parser(counts);
  int lineNumber = 1;
  for (rest.remove_prefix(firstEnd + 1); !rest.empty(); ++lineNumber) {
    const size_t end = rest.find('\n');
    if (!parser.ReadLine(rest.substr(0, end))) break;
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  if (rest.empty() && parser.Complete()) return true;
  error = "The count file " + source + " is damaged at line " + std::to_string(lineNumber + 1) +
          ".";
  return false;
}

}  // namespace wordtally
