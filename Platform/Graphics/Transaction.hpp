// Keeps a frame from seeing half of a change.
// Public header.
#pragma once

#include <mutex>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::graphics {

/// While one lives, no other thread changes or reads scenes, sprites and views. Every change and
/// every reading operation of them makes one of its own, and a renderer makes one while it gathers
/// what a frame shows; hold one around several changes that a frame should show together. They
/// nest. Hold it briefly, and take no other lock inside that is also held around one.
class ORIVANTA_API Transaction {
 public:
  /// Waits until no other thread has a transaction.
  Transaction() : lock_(mutex()) {}
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

 private:
  static std::recursive_mutex& mutex();

  std::lock_guard<std::recursive_mutex> lock_;
};

}  // namespace orivanta::graphics
