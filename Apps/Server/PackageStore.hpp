// The packages being served, kept up to date with the file system.
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

/// The packages at one point in time. Immutable.
struct PackageSet {
  std::vector<std::shared_ptr<const VenuePackage>> packages;
  RecordCollection venues;   ///< of all packages, in the order of the packages
  std::uint64_t number = 0;  ///< unique for each set

  explicit PackageSet(std::vector<std::shared_ptr<const VenuePackage>> all);

  /// Returns null if no venue has this slug.
  std::shared_ptr<const VenuePackage> package(std::string_view slug) const;
};

/// Thread-safe.
class PackageStore {
 public:
  /// `report` is called with a line of text for every package that was read again or could not be.
  /// It may be null; its exceptions are ignored.
  PackageStore(std::vector<VenuePackage> packages, std::chrono::milliseconds checkInterval,
               std::function<void(const std::string&)> report);

  /// The packages as on the disk, at most `checkInterval` old. Packages are replaced, but neither
  /// added nor removed: a package that is missing or cannot be read is kept as it was. While one
  /// thread reads a package, other threads receive the previous set.
  std::shared_ptr<const PackageSet> current();

 private:
  std::shared_ptr<const PackageSet> refreshed(const PackageSet& old) noexcept;
  std::shared_ptr<const VenuePackage> replacement(const PackageSet& old, std::size_t index,
                                                  std::string& seenVersion) const;
  void report(const std::string& line) const;

  const std::chrono::milliseconds checkInterval_;
  const std::function<void(const std::string&)> report_;
  std::vector<std::string> seenVersions_;  // for each package; used only by the thread that checks
  std::mutex mutex_;                       // guards the members below
  std::shared_ptr<const PackageSet> current_;
  std::chrono::steady_clock::time_point nextCheck_;
  bool isChecking_ = false;
};

}  // namespace orivanta::server
