#include "results/listing_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "support/number_format.h"

namespace wordtally {

namespace {

constexpr std::string_view kRankHeading = "Rank";
constexpr std::string_view kFreqHeading = "Freq";
constexpr std::string_view kWordHeading = "Word";
constexpr std::string_view kLongestPrefix = " (longest has";
constexpr std::string_view kLongestSuffix = " characters)";
constexpr std::string_view kCommaSeparator = ",  ";
constexpr std::string_view kCommaLead = "  ";
constexpr std::string_view kWordFieldEnd = ", ";

enum class Field { Rank, Freq, Word };

// The fields of a format in order, with the blanks before the first and between the fields in
// plain mode. Comma mode starts every line with two blanks and puts ",  " after a number; the
// word field brings its own ", " there.
struct FormatShape {
  std::string_view plainLead;
  int numFields;
  std::array<Field, 3> fields;
  std::array<std::string_view, 2> plainSeparators;
};

constexpr std::array<FormatShape, kNumDisplayFormats> kFormatShapes{{
    {" ", 3, {Field::Rank, Field::Freq, Field::Word}, {"  ", "  "}},
    {" ", 3, {Field::Rank, Field::Word, Field::Freq}, {"  ", "  "}},
    {" ", 2, {Field::Rank, Field::Freq}, {"  "}},
    {" ", 2, {Field::Rank, Field::Word}, {"  "}},
    {" ", 2, {Field::Freq, Field::Rank}, {"  "}},
    {"  ", 2, {Field::Freq, Field::Word}, {"  "}},
    {"  ", 2, {Field::Word, Field::Rank}, {" "}},
    {"  ", 2, {Field::Word, Field::Freq}, {" "}},
    {"", 1, {Field::Word}, {}},
    {"", 1, {Field::Word}, {}},
}};

int16_t DecimalDigits(int32_t n) {
  char digits[12];
  return static_cast<int16_t>(std::to_chars(digits, digits + sizeof digits, n).ptr - digits);
}

void AppendRightAligned(std::string_view field, int16_t width, AnsiString& text) {
  if (static_cast<size_t>(width) > field.size()) text.append(width - field.size(), ' ');
  text.append(field);
}

void AppendRightAligned(int32_t number, int16_t width, AnsiString& text) {
  char digits[12];
  const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  AppendRightAligned(std::string_view(digits, static_cast<size_t>(end - digits)), width, text);
}

void TrimTrailingBlanks(AnsiString& text) {
  const size_t last = text.find_last_not_of(' ');
  text.erase(last == AnsiString::npos ? 0 : last + 1);
}

const FormatShape& ShapeOf(const ListingLayout& layout) {
  return kFormatShapes[std::clamp(layout.cboDisplayFormat, 0, kNumDisplayFormats - 1)];
}

bool WordIsLastField(const FormatShape& shape) {
  return shape.fields[shape.numFields - 1] == Field::Word;
}

void AppendField(Field field, const ListingLayout& layout, std::span<const WordListEntry> WordList,
                 int32_t index, AnsiString& text) {
  switch (field) {
    case Field::Rank: RankText(layout, WordList, index, text); break;
    case Field::Freq: FreqText(layout, WordList, index, text); break;
    case Field::Word: WordText(layout, WordList, index, text); break;
  }
}

}  // namespace

ListingLayout MakeListingLayout(const ListStatistics& stats, int16_t intMinWidth,
                                int cboDisplayFormat, bool blnCommaMode) {
  ListingLayout layout;
  layout.cboDisplayFormat = cboDisplayFormat;
  layout.blnCommaMode = blnCommaMode;
  layout.intRankWidth = std::max(intMinWidth, DecimalDigits(stats.lngNumWordsIncluded));
  layout.intFreqWidth = std::max(intMinWidth, DecimalDigits(stats.lngMaxFrequency));
  layout.intWordWidth = std::max(intMinWidth, stats.intMaxWordLengthFound);
  layout.intMaxWordLengthFound = stats.intMaxWordLengthFound;
  return layout;
}

void RankText(const ListingLayout& layout, std::span<const WordListEntry> WordList, int32_t index,
              AnsiString& text) {
  if (index == 0) {
    AppendRightAligned(kRankHeading, layout.intRankWidth, text);
  } else {
    AppendRightAligned(WordList[index].FreqOrder, layout.intRankWidth, text);
  }
}

void FreqText(const ListingLayout& layout, std::span<const WordListEntry> WordList, int32_t index,
              AnsiString& text) {
  if (index == 0) {
    AppendRightAligned(kFreqHeading, layout.intFreqWidth, text);
  } else {
    AppendRightAligned(WordList[index].Frequency, layout.intFreqWidth, text);
  }
}

void WordText(const ListingLayout& layout, std::span<const WordListEntry> WordList, int32_t index,
              AnsiString& text) {
  const std::string_view word = index == 0 ? kWordHeading : TrimBlanks(WordList[index].Word);
  text.append(word);
  if (layout.blnCommaMode && !WordIsLastField(ShapeOf(layout))) {
    text.append(kWordFieldEnd);
  } else if (static_cast<size_t>(layout.intWordWidth) > word.size()) {
    text.append(layout.intWordWidth - word.size(), ' ');
  }
}

void BuildListingLine(const ListingLayout& layout, std::span<const WordListEntry> WordList,
                      int32_t index, AnsiString& line) {
  const FormatShape& shape = ShapeOf(layout);
  line.clear();
  const bool singleField = shape.numFields == 1;
  line.append(layout.blnCommaMode && !singleField ? kCommaLead : shape.plainLead);
  for (int f = 0; f < shape.numFields; ++f) {
    if (f > 0) {
      const Field previous = shape.fields[f - 1];
      if (!layout.blnCommaMode) {
        line.append(shape.plainSeparators[f - 1]);
      } else if (previous != Field::Word) {
        line.append(kCommaSeparator);
      }
    }
    AppendField(shape.fields[f], layout, WordList, index, line);
  }
  if (!WordIsLastField(shape)) return;
  TrimTrailingBlanks(line);
  if (index == 0) {
    line.append(kLongestPrefix);
    line.append(NumberText(layout.intMaxWordLengthFound));
    line.append(kLongestSuffix);
  }
}

}  // namespace wordtally
