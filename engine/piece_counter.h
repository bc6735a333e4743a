#pragma once
// One piece of a file counted on a worker thread into a context of its own: a copy of the
// settings and of the common words, its own run record and word store, and a host that shows
// nothing. The worker reads the piece with the same line loop as a one-thread run.
#include <atomic>
#include <cstdint>
#include <memory>
#include <string_view>

#include "engine/engine_context.h"
#include "engine/piece_plan.h"
#include "input/line_preparation.h"

namespace wordtally {

// The line loop of a file run and its per-line service (progress bar and Stop), lent by the file
// source, so that a piece is read exactly as the whole file is.
struct LineCounting {
  void (*countLines)(EngineContext&, LineReader&, LinePreparer&);
  bool (*serveProgressAndStop)(EngineContext&, int64_t done, int64_t size);
};

// The host of a worker's context: shows nothing and answers every question with its default
// button. Its event-loop turns end the count (as Stop) once cancel is set, and it notes how many
// words the piece had when the settings first changed (only the UTF-8 switch changes them here).
class PieceHost final : public Host {
 public:
  PieceHost(const std::atomic<bool>& cancel, EngineContext& ctx) : cancel_(cancel), ctx_(ctx) {}

  Answer ShowMessage(const MessageBoxRequest& request) override { return request.defaultButton; }
  std::optional<AnsiString> InputBox(const AnsiString&, const AnsiString&,
                                     const AnsiString&) override {
    return std::nullopt;
  }
  std::optional<AnsiString> ChooseOutputFile() override { return std::nullopt; }
  size_t OutputLength() const override { return 0; }
  AnsiString OutputText() const override { return {}; }
  void SetOutputText(const AnsiString&) override {}
  void AppendOutput(std::string_view) override {}
  void SetCaption(Control, const AnsiString&) override {}
  void SetVisible(Control, bool) override {}
  void SetBusy(bool) override {}
  void SettingsChanged() override;
  void ProcessEvents() override;
  void StartTimer() override {}
  void StopTimer() override {}
  std::u16string ClipboardText() override { return {}; }

  int32_t SettingsChangedAt() const { return settingsChangedAt_; }

 private:
  const std::atomic<bool>& cancel_;
  EngineContext& ctx_;
  int32_t settingsChangedAt_ = -1;
};

// A worker's context, made on the main thread from the run's context when the piece is handed
// out (the settings are read there, where they may change).
struct PieceContext {
  PieceContext(const EngineContext& run, const std::atomic<bool>& cancel);

  CountingSettings settings;
  EngineContext ctx;
  PieceHost host;
};

// What the worker hands back.
struct CountedPiece {
  FilePiece piece;
  LinePreparer entry;  // the state the piece was taken to begin in
  LinePreparer exit;   // the state its last line left
  CommentState exitComment;
  // The piece's number of distinct words when its lines switched UTF-8 on; -1: no switch.
  int32_t utf8SwitchAt = -1;
  // Read to its end: no read error, no cancel, no exception.
  bool complete = false;
  std::unique_ptr<PieceContext> counted;
};

// Counts piece from the state entry (comments taken as closed), into context's store: on the
// context's threads when it has more than one and the piece is larger than one of its pieces.
CountedPiece CountPiece(const FilePiece& piece, const LinePreparer& entry,
                        std::unique_ptr<PieceContext> context, const LineCounting& lines);

}  // namespace wordtally
