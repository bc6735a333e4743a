#include "mpi/byte_messages.h"

#include <algorithm>
#include <cstdint>

namespace wordtally {
namespace {

constexpr size_t kPieceBytes = size_t{1} << 30;
constexpr int kLengthTag = 1, kPieceTag = 2;

int PieceSize(size_t total, size_t offset) {
  return static_cast<int>(std::min(kPieceBytes, total - offset));
}

}  // namespace

void SendBytes(const std::string& bytes, int to, MPI_Comm comm) {
  const uint64_t length = bytes.size();
  MPI_Send(&length, 1, MPI_UINT64_T, to, kLengthTag, comm);
  for (size_t offset = 0; offset < bytes.size(); offset += kPieceBytes) {
    MPI_Send(bytes.data() + offset, PieceSize(bytes.size(), offset), MPI_CHAR, to, kPieceTag,
             comm);
  }
}

std::string ReceiveBytes(int from, MPI_Comm comm) {
  uint64_t length = 0;
  MPI_Recv(&length, 1, MPI_UINT64_T, from, kLengthTag, comm, MPI_STATUS_IGNORE);
  std::string bytes(length, '\0');
  for (size_t offset = 0; offset < bytes.size(); offset += kPieceBytes) {
    MPI_Recv(bytes.data() + offset, PieceSize(bytes.size(), offset), MPI_CHAR, from, kPieceTag,
             comm, MPI_STATUS_IGNORE);
  }
  return bytes;
}

void BroadcastBytes(std::string& bytes, int root, MPI_Comm comm) {
  uint64_t length = bytes.size();
  MPI_Bcast(&length, 1, MPI_UINT64_T, root, comm);
  bytes.resize(length);
  for (size_t offset = 0; offset < bytes.size(); offset += kPieceBytes) {
    MPI_Bcast(bytes.data() + offset, PieceSize(bytes.size(), offset), MPI_CHAR, root, comm);
  }
}

}  // namespace wordtally
