#pragma once
// The text files of a corpus divided over the ranks of a job, and that division as the bytes
// rank 0 broadcasts.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wordtally {

using Share = std::vector<std::string>;  // files, in input order

// Divides files (in input order, sizes in bytes) into ranks shares, contiguous in input order, of
// about equal bytes: a file goes to the rank whose equal part of all the bytes holds its middle
// byte (by count when every file is empty). A share may be empty.
std::vector<Share> DivideIntoShares(const std::vector<std::string>& files,
                                    const std::vector<int64_t>& sizes, int ranks);

// The shares as bytes; no shares at all tell the other ranks that rank 0 runs alone.
std::string EncodeShares(const std::vector<Share>& shares);
// The share of rank in bytes; nullopt when there are no shares.
std::optional<Share> DecodeShare(std::string_view bytes, int rank);

}  // namespace wordtally
