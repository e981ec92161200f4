// Limits on the time and memory that a client may use on the server.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace orivanta::server {

struct ConnectionLimits {
  /// Maximum number of open connections; at least 1. When it is reached, a new client replaces the
  /// connection that has been idle longest. If none is idle, it replaces one whose client has
  /// accepted no response data for longest, or the slowest one that is at least a `rateWindow` old.
  /// If there is no such connection either, the new client waits.
  std::size_t connections = 512;

  std::uint32_t headerBytes = 16U << 10U;  ///< of a request header; longer: 431
  std::uint64_t bodyBytes = 64U << 10U;    ///< of a request body, which is ignored; longer: 413

  /// For a complete request, from the connection or the first byte after the previous response.
  std::chrono::milliseconds requestTime = std::chrono::seconds(10);
  /// Between a response and the first byte of the next request.
  std::chrono::milliseconds idleTime = std::chrono::seconds(30);

  /// A client that receives fewer bytes per second than this, averaged over a `rateWindow`, is
  /// disconnected. `rateWindow` is at least 1 ms.
  std::size_t lowestRate = 1024;
  std::chrono::milliseconds rateWindow = std::chrono::seconds(15);
};

}  // namespace orivanta::server
