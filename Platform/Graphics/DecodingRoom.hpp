// The memory that decoders of pictures may take together.
#pragma once

#include <cstdint>

namespace orivanta::graphics {

/// A part of it, held for as long as this lasts. Any thread.
class DecodingRoom {
 public:
  /// Waits until all parts held are at most 256 MiB together. A larger part is held alone.
  explicit DecodingRoom(std::uint64_t bytes);
  ~DecodingRoom();
  DecodingRoom(const DecodingRoom&) = delete;
  DecodingRoom& operator=(const DecodingRoom&) = delete;

 private:
  const std::uint64_t bytes_;
};

}  // namespace orivanta::graphics
