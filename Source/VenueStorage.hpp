// The port through which a VenueStore keeps its entries. FolderStorage implements it with files.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"

namespace orivanta {

/// A set of entries, each with a key. An application can implement it, for example with a database
/// of a browser. A store calls one function at a time, on a background thread, and waits for its
/// callback. A callback may be called before the function returns, or later and on any thread. It
/// must be called once, and it returns quickly.
///
/// Several processes may use the same entries at once. Reading an entry returns what one `save` has
/// written, or nothing.
class ORIVANTA_API VenueStorage {
 public:
  /// A point in time. Applications may show it to users.
  using Time = std::chrono::system_clock::time_point;

  /// What `save` writes and `load` reads.
  struct Entry {
    std::string bytes;                 ///< opaque
    std::vector<std::string> folders;  ///< the cache folders of the files that belong to the entry
  };

  /// The result of `load`.
  struct Loaded {
    std::string bytes;  ///< as they were saved
    Time savedAt;       ///< when the entry was last saved
  };

  /// One element of `list`.
  struct Listed {
    std::string key;        ///< of the entry
    std::size_t bytes = 0;  ///< size of the entry and of its files
    Time usedAt;            ///< when the entry was last saved or loaded
  };

  virtual ~VenueStorage() = default;

  /// Returns all entries. Files that belong to several entries count for the one that was used
  /// last.
  virtual void list(std::function<void(std::vector<Listed>)> done) = 0;

  /// Returns an entry, or nothing if there is none. A damaged entry is removed and counts as
  /// missing.
  virtual void load(const std::string& key, std::function<void(std::optional<Loaded>)> done) = 0;

  /// Adds or replaces an entry. If it fails, the former entry stays.
  virtual void save(const std::string& key, Entry entry,
                    std::function<void(foundation::Result<void>)> done) = 0;

  /// Removes an entry, and the files that belong to no other entry. Keeps an entry that is held.
  /// Returns whether the entry was removed.
  virtual void remove(const std::string& key, std::function<void(bool)> done) = 0;

  /// Returns a handle. As long as it exists, no process removes the entry. Returns null if that
  /// cannot be guaranteed. Thread-safe.
  virtual std::shared_ptr<void> hold(const std::string& key) = 0;
};

}  // namespace orivanta
