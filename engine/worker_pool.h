#pragma once
// A fixed set of worker threads that run the tasks handed to them, first come first served.
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace wordtally {

// The threads a run works on when asked for requested: that many, or one per core for 0.
int ThreadsToUse(int requested);

class WorkerPool {
 public:
  explicit WorkerPool(int threads);
  // Tasks not yet begun are dropped; the running ones are waited for.
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  void Submit(std::function<void()> task);

 private:
  void Serve(std::stop_token stop);

  std::mutex mutex_;
  std::condition_variable_any wake_;
  std::deque<std::function<void()>> tasks_;
  std::vector<std::jthread> threads_;
};

}  // namespace wordtally
