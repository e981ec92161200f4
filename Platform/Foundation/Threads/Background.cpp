#include "Platform/Foundation/Background.hpp"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>
#include <chrono>
#include <cstddef>
#include <thread>
#include <utility>

#include "Platform/Foundation/Threads/GrowingPool.hpp"

namespace orivanta::foundation {

// The pools are never destroyed, because tasks may still run when the process ends.

void runInBackground(std::function<void()> task) {
  static auto& pool =
      *new boost::asio::thread_pool(std::max(4U, std::thread::hardware_concurrency()));
  boost::asio::post(pool, std::move(task));
}

void runBlockingInBackground(std::function<void()> task) {
  constexpr std::size_t mostThreads = 512;
  constexpr std::chrono::seconds idleTime{10};
  static auto& pool = *new GrowingPool(mostThreads, idleTime);
  pool.run(std::move(task));
}

bool isTurnOver() { return false; }

}  // namespace orivanta::foundation
