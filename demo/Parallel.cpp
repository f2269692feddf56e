#include "Parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>

namespace demo {

void DoAll(const std::vector<std::function<void()>>& jobs) {
  std::atomic<std::size_t> next = 0;
  std::mutex mutex;
  std::exception_ptr failure;
  const auto work = [&] {
    for (std::size_t i = next++; i < jobs.size(); i = next++) {
      try {
        jobs[i]();
      } catch (...) {
        const std::lock_guard lock(mutex);
        failure = failure ? failure : std::current_exception();
      }
    }
  };
  {
    std::vector<std::jthread> threads;
    for (unsigned i = std::max(1U, std::thread::hardware_concurrency()); i > 0; --i) {
      threads.emplace_back(work);
    }
  }
  if (failure) {
    std::rethrow_exception(failure);
  }
}

}  // namespace demo
