#pragma once
// Giving memory that the program has freed back to the system.

namespace wordtally {

// Freed blocks that lie between blocks still in use stay with the process: the system counts
// them until something of their size is allocated there again. This gives their pages back.
void ReturnFreedMemory();

}  // namespace wordtally
