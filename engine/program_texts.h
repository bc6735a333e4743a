#pragma once
// The program texts whose wording is ours to choose: button captions, listing-phase progress
// texts and some titles. Kept together so that they can be reworded or translated in one place.
#include <string_view>

namespace wordtally::texts {

// "&" marks the letter of the access key: Alt+C presses the button.
inline constexpr std::string_view kCountButtonIdle = "&Count words";
inline constexpr std::string_view kCountButtonBusy = "Working ...";
inline constexpr std::string_view kStop = "Stop";
inline constexpr std::string_view kMarkingWords = "Marking the words to include";
inline constexpr std::string_view kRankingWords = "Ranking the words by frequency";
inline constexpr std::string_view kPreparingListing = "Preparing the listing";
inline constexpr std::string_view kInputFileNotSpecifiedTitle = "No input file";
inline constexpr std::string_view kStopQuestionTitle = "Stop counting?";
inline constexpr std::string_view kGenericErrorTitle = "Wordtally";
inline constexpr std::string_view kErrorReportTitle = "Error";
inline constexpr std::string_view kErrorReportPrefix = "An unexpected error occurred.\r\n";

}  // namespace wordtally::texts
