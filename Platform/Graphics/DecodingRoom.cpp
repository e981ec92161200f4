#include "Platform/Graphics/DecodingRoom.hpp"

#include <algorithm>
#include <condition_variable>
#include <mutex>

#include "Platform/Foundation/Waiting.hpp"

namespace orivanta::graphics {

namespace {

constexpr std::uint64_t mostBytes = 256U << 20U;

struct Room {
  std::mutex mutex;
  std::condition_variable changed;
  std::uint64_t taken = 0;
};

// Never destroyed, because images may be decoded while the process ends.
Room& room() {
  static auto& instance = *new Room;
  return instance;
}

}  // namespace

DecodingRoom::DecodingRoom(std::uint64_t bytes) : bytes_(std::min(bytes, mostBytes)) {
  std::unique_lock lock(room().mutex);
  foundation::waitUntil(room().changed, lock,
                        [this] { return room().taken <= mostBytes - bytes_; });
  room().taken += bytes_;
}

DecodingRoom::~DecodingRoom() {
  const std::lock_guard lock(room().mutex);
  room().taken -= bytes_;
  room().changed.notify_all();
}

}  // namespace orivanta::graphics
