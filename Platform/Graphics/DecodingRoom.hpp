// Limits the memory of concurrent image decoders.
#pragma once

#include <cstdint>

namespace orivanta::graphics {

/// Reserves memory for one decoder during its lifetime. Thread-safe.
class DecodingRoom {
 public:
  /// Waits until all reservations together are at most 256 MiB. A larger one waits until it is the
  /// only one.
  explicit DecodingRoom(std::uint64_t bytes);
  ~DecodingRoom();
  DecodingRoom(const DecodingRoom&) = delete;
  DecodingRoom& operator=(const DecodingRoom&) = delete;

 private:
  const std::uint64_t bytes_;
};

}  // namespace orivanta::graphics
