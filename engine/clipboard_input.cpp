#include "engine/clipboard_input.h"

#include <new>

#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "support/number_format.h"

namespace wordtally {
namespace {

void ShowSizeOf(EngineContext& ctx, size_t length) {
  ctx.host.SetCaption(Control::SizeOfClipboardContents,
                      FormatByteCount(static_cast<double>(length), false) + " on the clipboard.");
}

}  // namespace

void ShowClipboardSize(EngineContext& ctx) { ShowSizeOf(ctx, ctx.host.ClipboardText().size()); }

void PasteClipboardText(EngineContext& ctx, bool pasteIntoTextBox) {
  ctx.host.SetCaption(Control::Status, "");
  size_t n = 0;
  try {
    const std::u16string text = ctx.host.ClipboardText();
    if (text.empty()) {
      ctx.host.SetPastedText(u"");
      Tell(ctx.host, "Clipboard empty", "Clipboard is empty.", MessageIcon::None);
      return;
    }
    n = text.size();
    ShowSizeOf(ctx, n);
    if (n > static_cast<size_t>(kClipboardTextLimit)) {
      Tell(ctx.host, "Too much clipboard text",
           "There are " + FormatWholeNumber(static_cast<int64_t>(n)) +
               " characters in the text on the clipboard.\r\nThe maximum permitted is " +
               FormatWholeNumber(kClipboardTextLimit) +
               ".  If possible,\r\ncount word frequencies for this text using an input file.",
           MessageIcon::None);
      return;
    }
    if (pasteIntoTextBox) ctx.host.SetPastedText(text);
  } catch (const std::bad_alloc&) {
    AnsiString text = "There is too much text on the clipboard to paste into the textbox.";
    if (n < static_cast<size_t>(kClipboardTextLimit)) {
      text += "\r\nIt may, however, still be possible to count word frequencies.";
    }
    Tell(ctx.host, texts::kGenericErrorTitle, text, MessageIcon::None);
  }
}

bool IsPlainText(const std::u16string& s, int32_t maxChars, bool allowLineControls,
                 TextRules rules) {
  const size_t limit = maxChars < 1 ? s.size() : std::min(s.size(), static_cast<size_t>(maxChars));
  const unsigned mask = rules == TextRules::Modern ? 0xFFFF : 0xFF;
  for (size_t i = 0; i < limit; ++i) {
    const unsigned code = s[i] & mask;
    if (code >= 32) continue;
    const bool lineControl = code == 9 || code == 10 || code == 12 || code == 13;
    if (!allowLineControls || !lineControl) return false;
  }
  return true;
}

}  // namespace wordtally
