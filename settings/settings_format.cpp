#include "settings/settings_format.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <type_traits>
#include <variant>
#include <vector>

#include "settings/quoted_text.h"

namespace wordtally {

namespace {

constexpr std::string_view kVersionKey = "version";
constexpr std::string_view kUtf8ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kExplanation =
    "# Text values stand in double quotes; \\\\ \\\" \\r \\n \\t and \\xHH are escapes.";
constexpr int kCheckBoxChoices = 2;

// One option of the record as the file names it. Record is CountingSettings for reading a
// file and const CountingSettings for writing one, so that one table serves both directions.
template <class Record>
struct Field {
  template <class T>
  using Ref = std::conditional_t<std::is_const_v<Record>, const T*, T*>;

  std::string_view key;
  std::variant<Ref<int>, Ref<bool>, Ref<AnsiString>> value;
  int choices = 0;  // a number holds one of 0 .. choices - 1
  // An option added after the first version of the format: written only when it is on, so that
  // files of the classic settings stay exactly as they were, and off when a file leaves it out.
  bool offUnlessNamed = false;
};

int ItemCount(const std::vector<AnsiString>& items) { return static_cast<int>(items.size()); }

template <class Record>
std::vector<Field<Record>> FieldsOf(Record& s) {
  constexpr int kBox = kCheckBoxChoices;
  return {
      // Settings window.
      {"chkCaseSignificant", &s.chkCaseSignificant, kBox},
      {"chkAllowWordsWithHyphens", &s.chkAllowWordsWithHyphens, kBox},
      {"chkAllowWordsWithApostrophes", &s.chkAllowWordsWithApostrophes, kBox},
      {"chkAllowWordsWithNumerals", &s.chkAllowWordsWithNumerals, kBox},
      {"chkDropFinalS", &s.chkDropFinalS, kBox},
      {"chkOnly7bitASCII", &s.chkOnly7bitASCII, kBox},
      {"chkIgnoreNoVowel", &s.chkIgnoreNoVowel, kBox},
      {"chkIgnoreCommonWords", &s.chkIgnoreCommonWords, kBox},
      {"txbCommonWordsFile", &s.txbCommonWordsFile},
      {"txbWordsToIgnore", &s.txbWordsToIgnore},
      {"chkIgnoreInfrequentWords", &s.chkIgnoreInfrequentWords, kBox},
      {"cboThresholdFrequency", &s.cboThresholdFrequency, ItemCount(ThresholdItems())},
      {"chkAllowCommentMarkers", &s.chkAllowCommentMarkers, kBox},
      {"txbStartComment0", &s.txbStartComment[0]},
      {"txbEndComment0", &s.txbEndComment[0]},
      {"txbStartComment1", &s.txbStartComment[1]},
      {"txbEndComment1", &s.txbEndComment[1]},
      {"chkOutputWithCommas", &s.chkOutputWithCommas, kBox},
      {"chkWarnOnOverwrite", &s.chkWarnOnOverwrite, kBox},
      {"chkSaveStateOnQuit", &s.chkSaveStateOnQuit, kBox},
      {"chkModernText", &s.chkModernText, kBox, true},
      // Main window.
      {"optInFile", &s.optInFile, kBox},
      {"chkUTF8", &s.chkUTF8, kBox},
      {"chkSuppressWords", &s.chkSuppressWords, kBox},
      {"cboWordOrder", &s.cboWordOrder, ItemCount(WordOrderItems())},
      {"cboDisplayFormat", &s.cboDisplayFormat, ItemCount(DisplayFormatItems())},
      {"chkDisableOutputToFile", &s.chkDisableOutputToFile, kBox},
      {"txbFile0", &s.txbFile[0]},
      {"txbFile1", &s.txbFile[1]},
  };
}

std::string FormatValue(const Field<const CountingSettings>& field) {
  return std::visit(
      [](auto* value) -> std::string {
        if constexpr (std::is_same_v<decltype(value), const AnsiString*>) {
          return QuoteSettingText(*value);
        } else {
          return std::to_string(static_cast<int>(*value));
        }
      },
      field.value);
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// A whole number written in plain digits; nothing when the text is anything else.
std::optional<int> ParseWholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

AnsiString ChoiceProblem(std::string_view key, int choices, std::string_view text) {
  const AnsiString expected = choices == kCheckBoxChoices
                                  ? "0 or 1"
                                  : "a whole number from 0 to " + std::to_string(choices - 1);
  return AnsiString(key) + " must be " + expected + ", not \"" + Utf8ToAnsiText(text) + "\"";
}

// Stores one value; on failure sets problem and leaves the field alone.
bool StoreValue(const Field<CountingSettings>& field, std::string_view text, AnsiString& problem) {
  return std::visit(
      [&](auto* value) {
        if constexpr (std::is_same_v<decltype(value), AnsiString*>) {
          const bool stored = UnquoteSettingText(text, *value, problem);
          if (!stored) problem = "the value of " + AnsiString(field.key) + " " + problem;
          return stored;
        } else {
          const std::optional<int> number = ParseWholeNumber(text);
          if (!number || *number < 0 || *number >= field.choices) {
            problem = ChoiceProblem(field.key, field.choices, text);
            return false;
          }
          *value = static_cast<std::remove_pointer_t<decltype(value)>>(*number);
          return true;
        }
      },
      field.value);
}

struct SettingLine {
  int number = 0;
  std::string_view key;
  std::string_view value;
};

AnsiString LinePrefix(int number) { return "line " + std::to_string(number) + ": "; }

// Checks the header line and splits the rest into key=value lines, skipping blanks and comments.
SettingsParseResult SplitLines(std::string_view text, std::vector<SettingLine>& lines) {
  if (text.starts_with(kUtf8ByteOrderMark)) text.remove_prefix(kUtf8ByteOrderMark.size());
  int number = 0;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = Trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (++number == 1) {
      if (line != kSettingsHeader) return {SettingsVerdict::Foreign, {}};
      continue;
    }
    if (line.empty() || line.front() == '#' || line.front() == ';') continue;
    const size_t equals = line.find('=');
    if (equals == std::string_view::npos || Trim(line.substr(0, equals)).empty()) {
      return {SettingsVerdict::Damaged, LinePrefix(number) + "this is not a key=value line"};
    }
    lines.push_back({number, Trim(line.substr(0, equals)), Trim(line.substr(equals + 1))});
  }
  if (number == 0) return {SettingsVerdict::Foreign, {}};
  return {};
}

// The version line decides whether the keys mean what this program thinks they mean.
SettingsParseResult CheckVersion(const std::vector<SettingLine>& lines) {
  const SettingLine* versionLine = nullptr;
  for (const SettingLine& line : lines) {
    if (line.key == kVersionKey) versionLine = &line;
  }
  if (versionLine == nullptr) return {SettingsVerdict::Damaged, "the version line is missing"};
  const std::optional<int> version = ParseWholeNumber(versionLine->value);
  if (!version || *version < 1) {
    return {SettingsVerdict::Damaged, LinePrefix(versionLine->number) +
                                          "the version must be a positive whole number, not \"" +
                                          Utf8ToAnsiText(versionLine->value) + "\""};
  }
  if (*version != kSettingsFormatVersion) {
    return {SettingsVerdict::UnsupportedVersion, Utf8ToAnsiText(versionLine->value)};
  }
  return {};
}

}  // namespace

std::string FormatSettings(const CountingSettings& settings) {
  std::string text = std::string(kSettingsHeader) + "\n" + std::string(kExplanation) + "\n" +
                     std::string(kVersionKey) + "=" + std::to_string(kSettingsFormatVersion) + "\n";
  for (const Field<const CountingSettings>& field : FieldsOf(settings)) {
    const std::string value = FormatValue(field);
    if (!field.offUnlessNamed || value != "0") text += std::string(field.key) + "=" + value + "\n";
  }
  return text;
}

SettingsParseResult ParseSettings(std::string_view text, CountingSettings& settings) {
  std::vector<SettingLine> lines;
  SettingsParseResult result = SplitLines(text, lines);
  if (result.verdict == SettingsVerdict::Accepted) result = CheckVersion(lines);
  if (result.verdict != SettingsVerdict::Accepted) return result;

  CountingSettings loaded = settings;  // the record changes only when the whole file is good
  const std::vector<Field<CountingSettings>> fields = FieldsOf(loaded);
  for (const Field<CountingSettings>& field : fields) {
    AnsiString unused;
    if (field.offUnlessNamed) StoreValue(field, "0", unused);
  }
  for (const SettingLine& line : lines) {
    for (const Field<CountingSettings>& field : fields) {
      AnsiString problem;
      if (field.key == line.key && !StoreValue(field, line.value, problem)) {
        return {SettingsVerdict::Damaged, LinePrefix(line.number) + problem};
      }
    }
  }
  settings = std::move(loaded);
  return {};
}

}  // namespace wordtally
