// What one client may cost the server in time and memory.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace orivanta::server {

struct ConnectionLimits {
  /// Connections that are open at the same time; at least 1. When all are in use, a new client
  /// takes the place of the one that has been idle for longest, or that has taken nothing of its
  /// answer for longest, or that has been slowest in a connection of at least a `rateWindow`. A new
  /// client waits while all others are newer than that or wait for the server.
  std::size_t connections = 512;

  std::uint32_t headerBytes = 16U << 10U;  ///< of a request's header; a longer one is answered 431
  std::uint64_t bodyBytes = 64U << 10U;    ///< of a request's body, which is not used; else 413

  /// For a whole request, from the connection or from the first byte after an answer to its end.
  std::chrono::milliseconds requestTime = std::chrono::seconds(10);
  /// Between an answer and the first byte of the next request.
  std::chrono::milliseconds idleTime = std::chrono::seconds(30);

  /// A client that takes less of an answer than this many bytes per second, on average over a whole
  /// `rateWindow`, is cut off. At least 1 ms.
  std::size_t lowestRate = 1024;
  std::chrono::milliseconds rateWindow = std::chrono::seconds(15);
};

}  // namespace orivanta::server
