// A lock that prevents a frame from showing an incomplete change.
// Public header.
#pragma once

#include <mutex>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::graphics {

/// While a transaction exists, no other thread changes or reads scenes, sprites and views. Every
/// function that changes or reads them creates a transaction, and a renderer creates one while it
/// gathers a frame. Hold a transaction around several changes that should appear in the same frame.
/// Transactions nest. Hold them briefly. While you hold one, do not take a lock that other code
/// holds while it creates a transaction.
class ORIVANTA_API Transaction {
 public:
  /// Waits until no other thread holds a transaction.
  Transaction() : lock_(mutex()) {}
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

 private:
  static std::recursive_mutex& mutex();

  std::lock_guard<std::recursive_mutex> lock_;
};

}  // namespace orivanta::graphics
