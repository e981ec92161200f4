// Representations that were made lately, so that the next client gets them at once.
#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Apps/Server/Message.hpp"

namespace orivanta::server {

/// Drops what was used longest ago when the bodies and keys exceed the limit. Any thread.
class RepresentationCache {
 public:
  explicit RepresentationCache(std::size_t maximumBytes) : maximumBytes_(maximumBytes) {}

  /// What was made under this key before, else what `make` returns. Several threads that ask for
  /// the same missing key may each make it.
  std::shared_ptr<const Representation> get(const std::string& key,
                                            const std::function<Representation()>& make);

 private:
  struct Entry {
    std::string key;
    std::shared_ptr<const Representation> representation;
    std::size_t bytes() const { return key.size() + representation->body.size(); }
  };

  std::shared_ptr<const Representation> find(const std::string& key);
  void insert(Entry entry);

  const std::size_t maximumBytes_;
  std::mutex mutex_;  // guards what follows
  std::size_t bytes_ = 0;
  std::list<Entry> entries_;  // the one used last comes first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> index_;
};

}  // namespace orivanta::server
