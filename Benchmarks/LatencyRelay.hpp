// A relay on loopback that makes a server as far away as one likes.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace orivanta::benchmarks {

/// Passes connections on to a server on this machine; what the client sends arrives there later by
/// the latency, what the server answers comes back at once. Runs on a thread of its own.
class LatencyRelay {
 public:
  LatencyRelay(std::uint16_t serverPort, std::chrono::milliseconds latency);
  ~LatencyRelay();
  LatencyRelay(const LatencyRelay&) = delete;
  LatencyRelay& operator=(const LatencyRelay&) = delete;

  std::uint16_t port() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::benchmarks
