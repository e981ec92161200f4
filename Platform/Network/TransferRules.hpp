// What a request may ask of the server that answers it.
// Public header.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/Url.hpp"

namespace orivanta::network {

/// A transfer is too slow when fewer bytes than this, times the seconds of the window, arrive
/// within a window. One window follows the other, from the first byte of an answer on.
struct LowestRate {
  std::size_t bytesPerSecond = 1;   ///< on average over a window
  std::chrono::seconds window{60};  ///< at least one second

  friend bool operator==(const LowestRate&, const LowestRate&) = default;
};

/// What a request demands of the server. A request that is refused ends with an error.
struct TransferRules {
  LowestRate lowestRate;  ///< a slower transfer ends with an error; a minute without a byte does
  /// Whether a redirect from HTTPS to HTTP is an error instead of being followed.
  bool staysSecure = false;
  /// Pays for head and body while they are received and decoded. A request that exceeds it ends
  /// with an error of the domain "memory" (see `memoryError`). May be null.
  std::shared_ptr<foundation::MemoryBudget> budget = nullptr;
};

/// For loads that tell what failed: at least 100 bytes a second over a minute, and never from HTTPS
/// to HTTP.
inline TransferRules strictRules(LowestRate rate = {100, std::chrono::seconds(60)}) {
  return {rate, true, nullptr};
}

/// Whether the step from one URL to the next goes from HTTPS to HTTP.
ORIVANTA_API bool leavesHttps(const foundation::Url& from, const foundation::Url& to);

/// The error for such a step. It names both URLs, without credentials.
ORIVANTA_API foundation::Error insecureStep(const foundation::Url& from, const foundation::Url& to);
/// Whether an error was made by `insecureStep`.
ORIVANTA_API bool isInsecureStep(const foundation::Error& error);

}  // namespace orivanta::network
