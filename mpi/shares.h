#pragma once
// The text files of a corpus divided over the ranks of a job, and that division as the bytes
// rank 0 broadcasts.
#include <cstdint>
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

// One round of a corpus's count: the ranks count shares of whole files, or every rank counts a
// part of one large file.
struct Round {
  std::vector<Share> shares;  // one for each rank; none in a large file's round
  std::string largeFile;
};

// The text files (in input order, sizes in bytes) in rounds, in input order. With more than one
// rank, a file larger than pieceBytes and than each rank's equal part of all the bytes has a round
// of its own; the files between such files are divided into shares. Without files: one round of
// empty shares.
std::vector<Round> PlanRounds(const std::vector<std::string>& files,
                              const std::vector<int64_t>& sizes, int ranks, int64_t pieceBytes);

// The shares as bytes, and the share of rank in them (empty when there are fewer shares).
std::string EncodeShares(const std::vector<Share>& shares);
Share DecodeShare(std::string_view bytes, int rank);

}  // namespace wordtally
