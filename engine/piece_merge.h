#pragma once
// Merging a counted piece into the run's store on the main thread, as if its lines had been read
// there: its words are visited in the order they arrived in the piece, so that a word new to the
// run's store is new in the order a one-thread run finds it, and is echoed then.
namespace wordtally {

struct EngineContext;
struct CountedPiece;

// Adds the piece's words with their counts and its totals to ctx. The caller has checked that no
// count passes 2147483647.
void MergeCountedPiece(EngineContext& ctx, const CountedPiece& piece);

}  // namespace wordtally
