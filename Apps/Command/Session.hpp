// The program's connection to the web API, with calls that wait for their answer.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Command/Settings.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::command {

/// The library's diagnostic lines go to standard error from now on, unless quiet is asked for.
void showDiagnostics(const ConnectionOptions& options);

/// One per process, used by one thread. While a call waits, progress shows on a terminal.
class Session {
 public:
  /// Throws `CommandError` for settings that cannot be used.
  explicit Session(const ConnectionOptions& options);

  /// All venues of the account. Throws `CommandError` when the server gives no list.
  std::vector<std::shared_ptr<Venue>> fetchVenues();

  /// The venue with its collections, which is the active one afterwards. Throws `CommandError` when
  /// the server does not have it or when one of the collections in `needed` (by their names in the
  /// API) fails; of others that fail a warning is written.
  std::shared_ptr<Venue> loadVenue(const std::string& slug, bool accessible,
                                   const std::vector<std::string_view>& needed);
};

}  // namespace orivanta::command
