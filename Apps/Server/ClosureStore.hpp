// What the operator has closed: the file closure.json of each package.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "Apps/Server/RecordCollection.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Source/Guidance/Closures.hpp"

namespace orivanta::server {

/// The content of a closure.json: an array of objects with an `id`, which may have further members,
/// such as a `reason` for visitors. Immutable.
struct ClosureList {
  RecordCollection records;     ///< as in the file
  guidance::Closures closures;  ///< the identifiers
  std::string version;          ///< of the file; empty if there is none
  std::uint64_t number = 0;     ///< unique for each list
};

/// Keeps the last list of each package that could be read. Thread-safe.
class ClosureStore {
 public:
  /// `report` is called with a line of text for every file that cannot be used. It may be null; its
  /// exceptions are ignored.
  explicit ClosureStore(std::function<void(const std::string&)> report);

  /// Returns the list as it is on the disk now. A missing file is an empty list. If the file cannot
  /// be used, or is larger than 16 MiB, returns the last list that could be read, or else an empty
  /// one. Returns null if no list was read before and the system is out of descriptors or memory.
  std::shared_ptr<const ClosureList> current(const VenuePackage& package);

 private:
  struct Entry {
    std::string seenVersion;
    std::shared_ptr<const ClosureList> list;
  };

  void report(const std::string& line) const;

  const std::function<void(const std::string&)> report_;
  std::mutex mutex_;
  std::map<std::string, Entry> entries_;  // by slug
};

}  // namespace orivanta::server
