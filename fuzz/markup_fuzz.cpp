// The markup layer: tags, comments, CDATA, script and PHP sections and entities over lines that
// carry their state from one to the next, and the comment-marker detector and skipper.
#include <string>

#include "fuzz/fuzz_input.h"
#include "input/character_entities.h"
#include "input/comment_markers.h"
#include "input/markup.h"

namespace {

using wordtally::MarkupKind;
constexpr MarkupKind kKinds[] = {MarkupKind::Html, MarkupKind::Xml, MarkupKind::Php,
                                 MarkupKind::None};
constexpr const char* kSyntaxes[] = {"C", "HTML", "PHP", "XML"};

// Walks line as the line walk does: over comments, one character at a time elsewhere.
void SkipComments(const wordtally::CommentMarkerPairs& markers, std::string_view line,
                  wordtally::CommentState& state) {
  int32_t position = 1;
  while (static_cast<size_t>(position) <= line.size()) {
    if (state.intWithinComment < 0) {
      state.intWithinComment = DetectComment(markers, line, position, state);
    }
    if (state.intWithinComment < 0) {
      ++position;
      continue;
    }
    const int32_t before = position;
    SkipComment(markers, line, position, state);
    if (position <= before) __builtin_trap();  // the skipper must move on
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace wordtally;
  fuzz::FuzzInput input(data, size);
  const uint8_t options = input.TakeByte();
  MarkupFilter filter(kKinds[options & 3]);
  const CommentMarkerPairs markers = CommentSyntax(kSyntaxes[(options >> 2) & 3]);
  CommentState comments;
  std::string_view text = input.Rest();
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    AnsiString line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    AnsiString entities = line;
    ReplaceCharacterEntities(entities);
    filter.FilterLine(line);
    comments.lineGoesOn = fuzz::Bit(options, 4);
    SkipComments(markers, line, comments);
  }
  return 0;
}
