// The program's connection to the web API, with blocking calls.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Command/Settings.hpp"
#include "Source/Fwd.hpp"
#include "Source/VenueStore.hpp"

namespace orivanta::command {

/// Writes the library's diagnostics to standard error from now on, unless `quiet` is set.
void showDiagnostics(const ConnectionOptions& options);

/// Waits until a store has written what was loaded. `store` may be null.
void finishStoring(const std::shared_ptr<VenueStore>& store);

/// One per process, used on one thread. Shows progress on a terminal while a call waits.
class Session {
 public:
  /// Throws `CommandError` if the settings cannot be used.
  explicit Session(const ConnectionOptions& options);

  /// Returns all venues of the account, or those that are stored if there is no network. Throws
  /// `CommandError` if the server does not return a list.
  std::vector<std::shared_ptr<Venue>> fetchVenues();

  /// Loads the venue with its collections and makes it the active one. A complete venue is stored,
  /// so that it can be loaded without a network later. Throws `CommandError` if the server does not
  /// have it, or if one of the collections in `needed` (their names in the web API) fails. If
  /// another collection fails, writes a warning.
  std::shared_ptr<Venue> loadVenue(const std::string& slug, bool accessible,
                                   const std::vector<std::string_view>& needed);

 private:
  std::shared_ptr<Venue> loadStored(const std::string& slug, bool accessible);

  const bool isOffline_;
};

}  // namespace orivanta::command
