// The guides of the served venues.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Apps/Server/VenuePackage.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Guide.hpp"

namespace orivanta::server {

/// A loaded venue and its guide. Immutable.
struct GuidedVenue {
  std::shared_ptr<Venue> venue;                  ///< null if the package cannot be loaded
  std::shared_ptr<const guidance::Guide> guide;  ///< null if the package cannot be loaded
};

/// Keeps a loaded venue for each package and each order of the package's languages, at most four
/// for a package. Venues are loaded on first use; those that have not been used for the longest
/// time are dropped, and so is a package that was replaced. Thread-safe.
class GuideStore {
 public:
  /// Keeps at most `capacity` venues, which must be positive.
  explicit GuideStore(std::size_t capacity) : capacity_(capacity) {}

  /// Returns the venue as a client receives it that prefers these languages, best first, in lower
  /// case. Threads that need the same venue load it once; the others wait. Throws `std::bad_alloc`
  /// if the memory does not suffice.
  std::shared_ptr<const GuidedVenue> venue(const std::shared_ptr<const VenuePackage>& package,
                                           const std::vector<std::string>& languages);

 private:
  struct Entry {
    std::string slug;
    std::uint64_t number;                // of the package
    std::vector<std::string> languages;  // those that the package has
    std::shared_ptr<std::once_flag> once;
    std::shared_ptr<GuidedVenue> venue;
  };

  Entry entryFor(const VenuePackage& package, std::vector<std::string> languages);
  void dropOld(const std::string& slug);

  const std::size_t capacity_;
  std::mutex mutex_;
  std::list<Entry> entries_;  // the one that was used last comes first
};

}  // namespace orivanta::server
