#include "Apps/Server/GuideStore.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Server/PackageError.hpp"
#include "Apps/Server/PackageVenue.hpp"
#include "Source/Venue.hpp"

namespace orivanta::server {

namespace {

// Clients can send any list of languages, so those that make no difference are left out.
std::vector<std::string> known(const VenuePackage& package, std::vector<std::string> languages) {
  RecordCollection venue;
  venue.append(package.venue, package.filesPath());
  const auto has = [](const RecordCollection& records, const std::string& tag) {
    const auto& tags = records.languages();
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
  };
  std::erase_if(languages, [&](const std::string& tag) {
    return !has(venue, tag) &&
           std::none_of(package.collections.begin(), package.collections.end(),
                        [&](const RecordCollection& records) { return has(records, tag); });
  });
  return languages;
}

// How many orders of languages are kept for a package, so that clients of one venue do not displace
// the others.
constexpr std::size_t mostOfOnePackage = 4;

}  // namespace

std::shared_ptr<const GuidedVenue> GuideStore::venue(
    const std::shared_ptr<const VenuePackage>& package, const std::vector<std::string>& languages) {
  const Entry entry = entryFor(*package, known(*package, languages));
  std::call_once(*entry.once, [&] {
    try {
      const auto venue = loadPackage(package, entry.languages);
      entry.venue->guide = guidance::Guide::make(*venue);
      if (entry.venue->guide) entry.venue->venue = venue;
    } catch (const PackageError&) {
      return;  // it would fail again
    }
  });
  return entry.venue;
}

GuideStore::Entry GuideStore::entryFor(const VenuePackage& package,
                                       std::vector<std::string> languages) {
  const std::lock_guard lock(mutex_);
  // A request that began before the package was replaced may still use the older one.
  const bool isNewer = std::none_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.slug == package.slug && entry.number > package.number;
  });
  if (isNewer)
    entries_.remove_if([&](const Entry& entry) {
      return entry.slug == package.slug && entry.number < package.number;
    });
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.slug == package.slug && entry.number == package.number &&
           entry.languages == languages;
  });
  if (found != entries_.end()) {
    entries_.splice(entries_.begin(), entries_, found);
  } else {
    entries_.push_front({package.slug, package.number, std::move(languages),
                         std::make_shared<std::once_flag>(), std::make_shared<GuidedVenue>()});
    dropOld(package.slug);
  }
  return entries_.front();
}

void GuideStore::dropOld(const std::string& slug) {
  std::size_t ofPackage = 0;
  entries_.remove_if(
      [&](const Entry& entry) { return entry.slug == slug && ++ofPackage > mostOfOnePackage; });
  if (entries_.size() > capacity_) entries_.pop_back();
}

}  // namespace orivanta::server
