#include "results/list_summary.h"

#include <string>
#include <string_view>

#include "support/number_format.h"

namespace wordtally {

namespace {

constexpr std::string_view kWordsInList = "Number of words in this list:";
constexpr std::string_view kWordsIgnoredOtherThanCommon =
    "No. of words ignored (other than common words):";
constexpr std::string_view kWordsIgnored = "Number of words ignored:";
constexpr std::string_view kWordsExcluded = "Number of words excluded:";
constexpr std::string_view kInstancesInList = "Number of instances of words in this list:";
constexpr std::string_view kTotalInstances = "Total number of instances of words:";

constexpr std::string_view kNoWordsFound = "No words satisfying the conditions were found.";
constexpr std::string_view kNoneOftenEnough = "No words with more than 2 letters occur at least ";

constexpr Control kStatisticsLabels[] = {Control::StatWordsInList, Control::StatWordsIgnored,
                                         Control::StatWordsExcluded, Control::StatInstancesInList,
                                         Control::StatTotalInstances};

void ShowLabel(Host& host, Control label, std::string_view caption, int32_t value) {
  AnsiString text(caption);
  text.push_back(' ');
  text.append(FormatWholeNumber(value));
  host.SetCaption(label, text);
  host.SetVisible(label, true);
}

}  // namespace

void ShowListStatistics(Host& host, const ListStatistics& stats, int32_t lngTotalNumOccurrences,
                        int32_t lngNumWordsIgnored, bool blnIgnoringCommonWords) {
  ShowLabel(host, Control::StatWordsInList, kWordsInList, stats.lngNumWordsIncluded);
  ShowLabel(host, Control::StatWordsIgnored,
            blnIgnoringCommonWords ? kWordsIgnoredOtherThanCommon : kWordsIgnored,
            lngNumWordsIgnored);
  ShowLabel(host, Control::StatWordsExcluded, kWordsExcluded, stats.lngNumWordsExcluded);
  if (stats.lngNumOccurrences > 0) {
    ShowLabel(host, Control::StatInstancesInList, kInstancesInList, stats.lngNumOccurrences);
  } else {
    host.SetVisible(Control::StatInstancesInList, false);
  }
  ShowLabel(host, Control::StatTotalInstances, kTotalInstances, lngTotalNumOccurrences);
}

void ClearListStatistics(Host& host) {
  for (Control label : kStatisticsLabels) host.SetCaption(label, "");
}

AnsiString NothingToListText(int32_t lngNumWords, bool blnIgnoreInfrequentWords,
                             int32_t intThresholdFrequency) {
  if (lngNumWords == 0) return AnsiString(kNoWordsFound);
  AnsiString text(kNoneOftenEnough);
  if (!blnIgnoreInfrequentWords) {
    text.append("once.");
  } else if (intThresholdFrequency == 2) {
    text.append("twice.");
  } else {
    text.append(std::to_string(intThresholdFrequency));
    text.append(" times.");
  }
  return text;
}

}  // namespace wordtally
