#pragma once
// Byte strings of any length sent, received and broadcast over MPI, in pieces that MPI's int
// counts can carry.
#include <mpi.h>

#include <string>

namespace wordtally {

void SendBytes(const std::string& bytes, int to, MPI_Comm comm);
std::string ReceiveBytes(int from, MPI_Comm comm);
// bytes as root has them, on every rank.
void BroadcastBytes(std::string& bytes, int root, MPI_Comm comm);

}  // namespace wordtally
