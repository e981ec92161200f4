// The thread pool for computations. Tasks of serial queues run on other threads.
#pragma once

#include <boost/asio/thread_pool.hpp>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Exists until the process ends. Thread-safe.
ORIVANTA_API boost::asio::thread_pool& backgroundPool();

}  // namespace orivanta::foundation
