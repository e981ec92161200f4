// The packages that are served, kept up to date with the disk.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/VenuePackage.hpp"

namespace orivanta::server {

/// All packages at one time. Never changed.
struct PackageSet {
  std::vector<std::shared_ptr<const VenuePackage>> packages;
  RecordCollection venues;   ///< of all packages, in their order
  std::uint64_t number = 0;  ///< differs between sets

  explicit PackageSet(std::vector<std::shared_ptr<const VenuePackage>> all);

  /// Null when there is no venue of this slug.
  const VenuePackage* package(std::string_view slug) const;
};

/// Any thread.
class PackageStore {
 public:
  /// `report` is called with a line of text about every package that was read again or could not
  /// be; it may be null. What it throws is ignored.
  PackageStore(std::vector<VenuePackage> packages, std::chrono::milliseconds checkInterval,
               std::function<void(const std::string&)> report);

  /// The packages as they are now on the disk, or as they were at most `checkInterval` ago.
  /// Packages are replaced, but neither added nor removed: one that has gone or cannot be read
  /// stays as it was. While one thread reads a package, the others get what was there before.
  std::shared_ptr<const PackageSet> current();

 private:
  std::shared_ptr<const PackageSet> refreshed(const PackageSet& old) noexcept;
  std::shared_ptr<const VenuePackage> replacement(const PackageSet& old, std::size_t index,
                                                  std::string& seenVersion) const;
  void report(const std::string& line) const;

  const std::chrono::milliseconds checkInterval_;
  const std::function<void(const std::string&)> report_;
  std::vector<std::string> seenVersions_;  // of each package; used by the thread that checks
  std::mutex mutex_;                       // guards what follows
  std::shared_ptr<const PackageSet> current_;
  std::chrono::steady_clock::time_point nextCheck_;
  bool isChecking_ = false;
};

}  // namespace orivanta::server
