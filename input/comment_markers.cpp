#include "input/comment_markers.h"

namespace wordtally {

CommentMarkerPairs CommentSyntax(std::string_view name) {
  if (name == "C" || name == "PHP") return {{"/*", "//"}, {"*/", ""}, 2};
  if (name == "XML" || name == "HTML") return {{"<!--", ""}, {"-->", ""}, 1};
  return {};
}

int16_t DetectComment(const CommentMarkerPairs& markers, std::string_view line, int32_t lngLP,
                      CommentState& state) {
  if (lngLP < 1 || static_cast<size_t>(lngLP) > line.size()) return -1;
  const std::string_view rest = line.substr(static_cast<size_t>(lngLP) - 1);
  for (int i = 0; i < markers.count; ++i) {
    const AnsiString& start = markers.start[i];
    if (!start.empty() && rest.starts_with(start)) {
      state.startMarkerPending = true;
      return static_cast<int16_t>(i);
    }
  }
  return -1;
}

void SkipComment(const CommentMarkerPairs& markers, std::string_view line, int32_t& lngLP,
                 CommentState& state) {
  const int pair = state.intWithinComment;
  if (pair < 0 || pair >= markers.count) {
    state.intWithinComment = -1;
    return;
  }
  size_t from = static_cast<size_t>(lngLP) - 1;
  if (state.startMarkerPending) {
    from += markers.start[pair].size();
    state.startMarkerPending = false;
  }
  const int32_t beyondLine = static_cast<int32_t>(line.size()) + 1;
  const AnsiString& end = markers.end[pair];
  if (end.empty()) {  // the comment runs to the end of this line
    lngLP = beyondLine;
    if (!state.lineGoesOn) state.intWithinComment = -1;
    return;
  }
  const size_t found = from <= line.size() ? line.find(end, from) : std::string_view::npos;
  if (found == std::string_view::npos) {  // the comment goes on in the next line
    lngLP = beyondLine;
    return;
  }
  lngLP = static_cast<int32_t>(found + end.size()) + 1;
  state.intWithinComment = -1;
}

}  // namespace wordtally
