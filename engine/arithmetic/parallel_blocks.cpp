#include "engine/arithmetic/parallel_blocks.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace engine {
namespace {

class BlockQueue {
 public:
  BlockQueue(std::size_t count, std::size_t blockSize, const Progress& progress,
             const std::function<void(std::size_t, std::size_t)>& work)
      : count_(count), blockSize_(std::max<std::size_t>(blockSize, 1)), progress_(progress), work_(work) {}

  void run() noexcept {
    try {
      while (!stopped_) {
        const std::size_t first = next_.fetch_add(blockSize_);
        if (first >= count_) return;
        const std::size_t last = std::min(first + blockSize_, count_);
        work_(first, last);
        report(last - first);
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!error_) error_ = std::current_exception();
      stopped_ = true;
    }
  }

  bool finish() {
    if (error_) std::rethrow_exception(error_);
    return !stopped_;
  }

 private:
  void report(std::size_t added) {
    const std::lock_guard lock(mutex_);
    done_ += added;
    if (progress_ && !progress_(static_cast<double>(done_) / static_cast<double>(count_))) stopped_ = true;
  }

  std::size_t count_;
  std::size_t blockSize_;
  const Progress& progress_;
  const std::function<void(std::size_t, std::size_t)>& work_;
  std::atomic<std::size_t> next_{0};
  std::atomic<bool> stopped_{false};
  std::mutex mutex_;
  std::size_t done_ = 0;
  std::exception_ptr error_;
};

}  // namespace

bool forEachBlock(std::size_t count, std::size_t blockSize, std::size_t jobs, const Progress& progress,
                  const std::function<void(std::size_t, std::size_t)>& work) {
  BlockQueue queue(count, blockSize, progress, work);
  std::vector<std::thread> helpers;
  const std::size_t blocks = (count + blockSize - 1) / std::max<std::size_t>(blockSize, 1);
  for (std::size_t i = 1; i < std::min(jobs, blocks); ++i) helpers.emplace_back([&queue] { queue.run(); });
  queue.run();
  for (std::thread& helper : helpers) helper.join();
  return queue.finish();
}

}  // namespace engine
