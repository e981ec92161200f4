// Representations that were made lately, so that the next client gets them at once.
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

/// Drops what was used longest ago when the bodies and keys exceed the limit. What somebody still
/// uses is kept beyond the limit: dropping it would free nothing, and the next client would need a
/// copy. Any thread.
class RepresentationCache {
 public:
  using Maker = std::function<Representation()>;

  /// Keeps `maximumBytes`, and makes nothing new while `mostInUse` bytes are in use or longer.
  explicit RepresentationCache(std::size_t maximumBytes,
                               std::size_t mostInUse = std::numeric_limits<std::size_t>::max())
      : maximumBytes_(maximumBytes), mostInUse_(mostInUse) {}

  /// What was made under this key before, else what `make` returns. Of several threads that ask for
  /// the same missing key one makes it, and the others wait. Null if too much is in use.
  std::shared_ptr<const Representation> get(const std::string& key, const Maker& make);

  /// The same without waiting: null also while another thread makes it.
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
  std::mutex mutex_;              // guards what follows
  std::condition_variable made_;  // or given up: a key has left `making_`
  std::unordered_set<std::string> making_;
  std::size_t bytes_ = 0;
  std::list<Entry> entries_;  // the one used last comes first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> index_;
};

}  // namespace orivanta::server
