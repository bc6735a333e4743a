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

// Writes a line into room made large enough for it beforehand.
class LineWriter {
 public:
  explicit LineWriter(char* start) : start_(start), end_(start) {}

  void Text(std::string_view text) { end_ = std::copy(text.begin(), text.end(), end_); }
  void Blanks(size_t count) { end_ = std::fill_n(end_, count, ' '); }
  void RightAligned(std::string_view field, int16_t width) {
    if (static_cast<size_t>(width) > field.size()) Blanks(width - field.size());
    Text(field);
  }
  void RightAligned(int32_t number, int16_t width) {
    char digits[12];
    const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    RightAligned(std::string_view(digits, static_cast<size_t>(end - digits)), width);
  }
  void TrimTrailingBlanks() {
    while (end_ != start_ && end_[-1] == ' ') --end_;
  }
  std::string_view Written() const { return {start_, static_cast<size_t>(end_ - start_)}; }

 private:
  char* start_;
  char* end_;
};

const FormatShape& ShapeOf(const ListingLayout& layout) {
  return kFormatShapes[std::clamp(layout.cboDisplayFormat, 0, kNumDisplayFormats - 1)];
}

bool WordIsLastField(const FormatShape& shape) {
  return shape.fields[shape.numFields - 1] == Field::Word;
}

void RankText(const ListingLayout& layout, std::span<const WordListEntry> WordList, int32_t index,
              LineWriter& line) {
  if (index == 0) {
    line.RightAligned(kRankHeading, layout.intRankWidth);
  } else {
    line.RightAligned(WordList[index].FreqOrder, layout.intRankWidth);
  }
}

void FreqText(const ListingLayout& layout, std::span<const WordListEntry> WordList, int32_t index,
              LineWriter& line) {
  if (index == 0) {
    line.RightAligned(kFreqHeading, layout.intFreqWidth);
  } else {
    line.RightAligned(WordList[index].Frequency, layout.intFreqWidth);
  }
}

// The padding of a last field is trimmed again: it is left out.
void WordText(const ListingLayout& layout, std::string_view word, LineWriter& line) {
  line.Text(word);
  if (WordIsLastField(ShapeOf(layout))) return;
  if (layout.blnCommaMode) {
    line.Text(kWordFieldEnd);
  } else if (static_cast<size_t>(layout.intWordWidth) > word.size()) {
    line.Blanks(layout.intWordWidth - word.size());
  }
}

std::string_view WordAt(std::span<const WordListEntry> WordList, int32_t index) {
  return index == 0 ? kWordHeading : TrimBlanks(WordList[index].Word);
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

// Enough for the widest fields, the separators and the header's ending, whatever the numbers.
char* ListingLineMaker::RoomFor(size_t wordSize) {
  constexpr size_t kNumbersAndSeparators = 64;
  const size_t room = static_cast<size_t>(layout_.intRankWidth) + layout_.intFreqWidth +
                      std::max<size_t>(layout_.intWordWidth, wordSize) + kNumbersAndSeparators;
  if (buffer_.size() < room) buffer_.resize(room);
  return buffer_.data();
}

std::string_view ListingLineMaker::Line(std::span<const WordListEntry> WordList, int32_t index) {
  const FormatShape& shape = ShapeOf(layout_);
  const std::string_view word = WordAt(WordList, index);
  LineWriter line(RoomFor(word.size()));
  line.Text(layout_.blnCommaMode && shape.numFields > 1 ? kCommaLead : shape.plainLead);
  for (int f = 0; f < shape.numFields; ++f) {
    if (f > 0) {
      const Field previous = shape.fields[f - 1];
      if (!layout_.blnCommaMode) {
        line.Text(shape.plainSeparators[f - 1]);
      } else if (previous != Field::Word) {
        line.Text(kCommaSeparator);
      }
    }
    switch (shape.fields[f]) {
      case Field::Rank: RankText(layout_, WordList, index, line); break;
      case Field::Freq: FreqText(layout_, WordList, index, line); break;
      case Field::Word: WordText(layout_, word, line); break;
    }
  }
  if (!WordIsLastField(shape)) return line.Written();
  line.TrimTrailingBlanks();
  if (index == 0) {
    line.Text(kLongestPrefix);
    line.Text(NumberText(layout_.intMaxWordLengthFound));
    line.Text(kLongestSuffix);
  }
  return line.Written();
}

}  // namespace wordtally
