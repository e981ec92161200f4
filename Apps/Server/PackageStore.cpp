#include "Apps/Server/PackageStore.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "Apps/Server/PackageError.hpp"

namespace orivanta::server {

PackageSet::PackageSet(std::vector<std::shared_ptr<const VenuePackage>> all)
    : packages(std::move(all)) {
  for (const auto& package : packages) {
    venues.append(package->venue, package->filesPath());
    number = std::max(number, package->number);
  }
}

std::shared_ptr<const VenuePackage> PackageSet::package(std::string_view slug) const {
  for (const auto& package : packages)
    if (package->slug == slug) return package;
  return nullptr;
}

PackageStore::PackageStore(std::vector<VenuePackage> packages,
                           std::chrono::milliseconds checkInterval,
                           std::function<void(const std::string&)> report)
    : checkInterval_(checkInterval),
      report_(std::move(report)),
      nextCheck_(std::chrono::steady_clock::now() + checkInterval) {
  std::vector<std::shared_ptr<const VenuePackage>> all;
  for (VenuePackage& package : packages) {
    seenVersions_.push_back(package.version);
    all.push_back(std::make_shared<const VenuePackage>(std::move(package)));
  }
  current_ = std::make_shared<const PackageSet>(std::move(all));
}

std::shared_ptr<const PackageSet> PackageStore::current() {
  std::unique_lock lock(mutex_);
  if (isChecking_ || std::chrono::steady_clock::now() < nextCheck_) return current_;
  isChecking_ = true;
  const auto old = current_;
  lock.unlock();
  auto replaced = refreshed(*old);
  lock.lock();
  isChecking_ = false;
  nextCheck_ = std::chrono::steady_clock::now() + checkInterval_;
  if (replaced) current_ = std::move(replaced);
  return current_;
}

// Returns null if no package was replaced.
std::shared_ptr<const PackageSet> PackageStore::refreshed(const PackageSet& old) noexcept try {
  auto packages = old.packages;
  auto seenVersions = seenVersions_;
  for (std::size_t index = 0; index < packages.size(); ++index)
    if (auto package = replacement(old, index, seenVersions[index]))
      packages[index] = std::move(package);
  const bool isSame = packages == old.packages;
  auto set = isSame ? nullptr : std::make_shared<const PackageSet>(std::move(packages));
  seenVersions_ = std::move(seenVersions);
  return set;
} catch (...) {
  return nullptr;
}

// Returns null if the package is unchanged, or cannot replace the old one.
std::shared_ptr<const VenuePackage> PackageStore::replacement(const PackageSet& old,
                                                              std::size_t index,
                                                              std::string& seenVersion) const {
  const VenuePackage& before = *old.packages[index];
  std::string version = packageVersion(before.source);
  if (version.empty() || version == seenVersion) return nullptr;
  seenVersion = std::move(version);
  try {
    auto package = std::make_shared<const VenuePackage>(readPackage(before.source));
    const auto namesake = old.package(package->slug);
    if (namesake && namesake.get() != &before)
      throw PackageError(fmt::format("{}: the slug \"{}\" is also used by {}",
                                     before.source.string(), package->slug,
                                     namesake->source.string()));
    report(fmt::format("{}: the package was reloaded", before.source.string()));
    return package;
  } catch (const std::exception& error) {
    report(fmt::format("{}; the previous package is still served", error.what()));
    return nullptr;
  }
}

void PackageStore::report(const std::string& line) const try {
  if (report_) report_(line);
} catch (...) {
  return;
}

}  // namespace orivanta::server
