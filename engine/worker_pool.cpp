#include "engine/worker_pool.h"

#include <algorithm>
#include <utility>

namespace wordtally {

int ThreadsToUse(int requested) {
  if (requested > 0) return requested;
  return static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
}

WorkerPool::WorkerPool(int threads) {
  threads_.reserve(static_cast<size_t>(threads));
  for (int i = 0; i < threads; ++i) {
    threads_.emplace_back([this](std::stop_token stop) { Serve(stop); });
  }
}

WorkerPool::~WorkerPool() {
  // Every thread is asked first, so that none picks up another task while the others are joined.
  for (std::jthread& thread : threads_) thread.request_stop();
  threads_.clear();
}

void WorkerPool::Submit(std::function<void()> task) {
  {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
  }
  wake_.notify_one();
}

void WorkerPool::Serve(std::stop_token stop) {
  for (;;) {
    std::function<void()> task;
    {
      std::unique_lock lock(mutex_);
      if (!wake_.wait(lock, stop, [this] { return !tasks_.empty(); })) return;
      if (stop.stop_requested()) return;
      task = std::move(tasks_.front());
      tasks_.pop_front();
    }
    task();
  }
}

}  // namespace wordtally
