// The limits that a request must keep.
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

/// The lowest permitted transfer rate. A transfer is too slow if fewer than `bytesPerSecond` times
/// the seconds of the window arrive within a window. The first window begins with the first byte of
/// a response, and each further window begins when the previous one ends.
struct LowestRate {
  std::size_t bytesPerSecond = 1;   ///< on average over a window
  std::chrono::seconds window{60};  ///< at least one second

  friend bool operator==(const LowestRate&, const LowestRate&) = default;
};

/// The limits that a request must keep. A request that breaks them ends with an error.
struct TransferRules {
  LowestRate lowestRate;  ///< slower transfers end with an error; default: 60 bytes per minute
  /// If true, a redirect from HTTPS to HTTP is an error. Otherwise it is followed.
  bool staysSecure = false;
  /// The budget for the head and the body while they are received and decoded. A request that
  /// exceeds it ends with an error of the domain "memory" (see `memoryError`). May be null.
  std::shared_ptr<foundation::MemoryBudget> budget = nullptr;
};

/// Returns the rules for loads that report errors. A transfer needs at least `rate` (default: 100
/// bytes per second over a minute), and redirects from HTTPS to HTTP are errors.
inline TransferRules strictRules(LowestRate rate = {100, std::chrono::seconds(60)}) {
  return {rate, true, nullptr};
}

/// Returns whether the step from one URL to the next goes from HTTPS to HTTP.
ORIVANTA_API bool leavesHttps(const foundation::Url& from, const foundation::Url& to);

/// Returns the error for such a step. It names both URLs, without credentials.
ORIVANTA_API foundation::Error insecureStep(const foundation::Url& from, const foundation::Url& to);
/// Returns whether an error was created by `insecureStep`.
ORIVANTA_API bool isInsecureStep(const foundation::Error& error);

/// Returns the error for a response that was received but is only a part of what the server has.
ORIVANTA_API foundation::Error incompleteAnswer(std::string description);
/// Returns whether an error was created by `incompleteAnswer`.
ORIVANTA_API bool isIncompleteAnswer(const foundation::Error& error);

}  // namespace orivanta::network
