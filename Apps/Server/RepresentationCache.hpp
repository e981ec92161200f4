// A cache of recently made representations.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <limits>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "Apps/Server/Message.hpp"

namespace orivanta::server {

/// Removes the least recently used entries when the bodies and keys exceed the limit.
/// Representations in use are kept beyond the limit, since removing them would free no memory.
/// Thread-safe.
class RepresentationCache {
 public:
  using Maker = std::function<Representation()>;

  /// Keeps up to `maximumBytes`. While at least `mostInUse` bytes are in use, makes nothing new.
  explicit RepresentationCache(std::size_t maximumBytes,
                               std::size_t mostInUse = std::numeric_limits<std::size_t>::max())
      : maximumBytes_(maximumBytes), mostInUse_(mostInUse) {}

  /// Returns the cached representation for this key, or the result of `make`. If several threads
  /// request a missing key, one of them makes it and the others wait. Returns null if too much is
  /// in use.
  std::shared_ptr<const Representation> get(const std::string& key, const Maker& make);

  /// The same without waiting: also returns null while another thread makes the representation.
  std::shared_ptr<const Representation> getWithoutWaiting(const std::string& key,
                                                          const Maker& make);

 private:
  struct Entry {
    std::string key;
    std::shared_ptr<const Representation> representation;
    std::size_t bytes() const { return key.size() + representation->body.size(); }
  };

  std::shared_ptr<const Representation> get(const std::string& key, const Maker& make,
                                            bool mayWait);
  std::shared_ptr<const Representation> find(const std::string& key);
  void insert(Entry entry);
  void dropUnused();

  const std::size_t maximumBytes_;
  const std::size_t mostInUse_;
  std::mutex mutex_;              // guards the members below
  std::condition_variable made_;  // signaled when a key leaves `making_`
  std::unordered_set<std::string> making_;
  std::size_t bytes_ = 0;
  std::list<Entry> entries_;  // most recently used first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> index_;
};

}  // namespace orivanta::server
