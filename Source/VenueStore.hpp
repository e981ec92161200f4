// Keeps complete venues, so that an application can show them without a server.
//
//   setApiSettings({.endpoint = endpoint, .store = VenueStore::inCachesDirectory()});
//   getVenue(venue, show);  // a load without failures is stored
//
//   loadStoredVenue(APISession(), slug, accessible, {.ended = [](StoredVenueReport report) {
//     if (report.venue) show(report.venue, report.storedAt);
//   }});
//
// The store contains the responses of the web API, and the names of the folders in which the files
// of a venue are cached (see `HttpDownloader::fetchFile`). A load stores a venue when all six
// collections have arrived without a failure and there is at least one floor. Otherwise the venue
// that was stored before stays.
//
// Venues of different endpoints, languages and user names are stored separately. Passwords are
// never stored, and of a user name only a checksum.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/VenueStorage.hpp"

namespace orivanta {

/// Stores and loads in the background, one operation at a time. If the entries and their files
/// together become too large, the entries that have not been used for the longest time are removed,
/// but none that is in use. Several processes may use the same storage. Thread-safe.
class ORIVANTA_API VenueStore : public std::enable_shared_from_this<VenueStore> {
 public:
  /// The settings of a store.
  struct Options {
    /// The size of all entries with their files, in bytes. A larger entry is not stored.
    std::size_t mostBytes = defaultMostBytes;
    /// Called when an entry cannot be stored, for example because the disk is full, but only the
    /// first time. Runs on a background thread. If empty, a diagnostic line is written instead.
    std::function<void(const foundation::Error&)> failed = nullptr;
  };

  /// The default of `Options::mostBytes`: 1 GiB.
  static constexpr std::size_t defaultMostBytes = std::size_t{1} << 30U;

  /// Creates a store. Stops the program if `storage` is null.
  static std::shared_ptr<VenueStore> make(std::shared_ptr<VenueStorage> storage, Options options);

  /// Creates a store with the default options in the folder "venues" of the cache folder. Returns
  /// null if there is no cache folder.
  static std::shared_ptr<VenueStore> inCachesDirectory();

  VenueStore(const VenueStore&) = delete;
  VenueStore& operator=(const VenueStore&) = delete;

  /// Calls `done` on a background thread when the operations that were started before have ended.
  void whenIdle(std::function<void()> done);

  // The following functions are called by the loads of Orivanta.hpp.

  /// Stores an entry.
  void save(const std::string& key, VenueStorage::Entry entry);

  /// Loads an entry. `done` is called on a background thread, with nothing if there is no such
  /// entry.
  void load(const std::string& key, std::function<void(std::optional<VenueStorage::Loaded>)> done);

  /// Passes all entries to `done` on a background thread.
  void list(std::function<void(std::vector<VenueStorage::Listed>)> done);

  /// Does not remove an entry as long as `user` exists.
  void protect(const std::string& key, std::weak_ptr<void> user);

  /// Removes an entry that cannot be used.
  void remove(const std::string& key);

  /// Returns `Options::mostBytes`.
  std::size_t mostBytes() const { return options_.mostBytes; }

 private:
  using Finished = std::function<void()>;
  using Listed = VenueStorage::Listed;

  struct Use {
    std::weak_ptr<void> user;
    std::shared_ptr<void> hold;
  };

  VenueStore(std::shared_ptr<VenueStorage> storage, Options options);
  void run(std::function<void(Finished finished)> operation);
  bool isUsed(const std::string& key);
  void makeRoom();
  void removeOldest(std::vector<Listed> entries, std::size_t bytes, const Finished& finished);
  void fail(const foundation::Error& error);

  const std::shared_ptr<VenueStorage> storage_;
  const Options options_;
  const std::shared_ptr<foundation::SerialQueue> queue_;
  std::mutex mutex_;  // guards the following members
  std::multimap<std::string, Use> uses_;
  bool hasFailed_ = false;
};

}  // namespace orivanta
