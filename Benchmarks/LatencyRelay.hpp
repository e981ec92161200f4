// A relay on loopback that adds latency to a server.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace orivanta::benchmarks {

/// Forwards connections to a server on this machine. Data from the client is delayed by the
/// latency; data from the server is not. Runs on its own thread.
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
