#include "Platform/Foundation/BackgroundPool.hpp"

#include <algorithm>
#include <thread>

namespace orivanta::foundation {

// Never destroyed, because work may still run when the process ends.
boost::asio::thread_pool& backgroundPool() {
  static auto& pool =
      *new boost::asio::thread_pool(std::max(4U, std::thread::hardware_concurrency()));
  return pool;
}

}  // namespace orivanta::foundation
