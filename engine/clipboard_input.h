#pragma once
// Clipboard text as a source: the size label, the paste step and the plain-text check.
#include <cstdint>
#include <string>

#include "input/text_rules.h"

namespace wordtally {

struct EngineContext;

inline constexpr int32_t kClipboardTextLimit = 100000;

void ShowClipboardSize(EngineContext& ctx);
void PasteClipboardText(EngineContext& ctx, bool pasteIntoTextBox);
// Looks at the low byte of each of the first maxChars code units (all when maxChars < 1); under
// the modern rules at the whole code unit, so that only real control characters fail.
bool IsPlainText(const std::u16string& s, int32_t maxChars, bool allowLineControls,
                 TextRules rules = TextRules::Classic);

}  // namespace wordtally
