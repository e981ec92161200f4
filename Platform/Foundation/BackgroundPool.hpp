// The threads that share out computations of the process. Tasks of a serial queue have others.
#pragma once

#include <boost/asio/thread_pool.hpp>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Lives as long as the process. Any thread.
ORIVANTA_API boost::asio::thread_pool& backgroundPool();

}  // namespace orivanta::foundation
