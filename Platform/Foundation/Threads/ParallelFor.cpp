#include "Platform/Foundation/ParallelFor.hpp"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <thread>

#include "Platform/Foundation/Background.hpp"

namespace orivanta::foundation {

namespace {

// Helpers may start after the work is done and the caller has returned. They therefore share
// ownership of this state, and access the body only after they have taken a number.
struct SharedWork {
  SharedWork(std::size_t pieces, std::size_t rowLength,
             const std::function<void(std::size_t)>& work)
      : count(pieces), inARow(rowLength), body(work) {}

  void takePieces() {
    for (std::size_t first = next.fetch_add(inARow); first < count;
         first = next.fetch_add(inARow)) {
      const std::size_t end = first + std::min(inARow, count - first);
      const std::exception_ptr thrown = callAll(first, end);
      const std::lock_guard lock(mutex);
      if (thrown) failure = thrown;
      finished += end - first;
      if (finished == count) allFinished.notify_one();
    }
  }

  // After a failure, the remaining pieces are counted but not run.
  std::exception_ptr callAll(std::size_t first, std::size_t end) noexcept {
    try {
      for (std::size_t piece = first; piece < end && !failed; ++piece) body(piece);
      return nullptr;
    } catch (...) {
      failed = true;
      return std::current_exception();
    }
  }

  const std::size_t count;
  const std::size_t inARow;
  const std::function<void(std::size_t)>& body;
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> failed = false;
  std::mutex mutex;
  std::condition_variable allFinished;
  std::size_t finished = 0;
  std::exception_ptr failure;
};

}  // namespace

void parallelFor(std::size_t count, const std::function<void(std::size_t)>& body,
                 std::size_t inARow) {
  if (count == 0) return;
  const auto work = std::make_shared<SharedWork>(count, inARow, body);
  const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
  const std::size_t rows = (count - 1) / inARow + 1;
  try {
    for (std::size_t helper = 1; helper < std::min(processors, rows); ++helper)
      runInBackground([work] { work->takePieces(); });
  } catch (const std::bad_alloc&) {
    // The calling thread runs the pieces that no helper takes.
  }
  work->takePieces();
  std::unique_lock lock(work->mutex);
  work->allFinished.wait(lock, [&] { return work->finished == count; });
  if (work->failure) std::rethrow_exception(work->failure);
}

}  // namespace orivanta::foundation
