#include "Apps/Server/RepresentationCache.hpp"

#include <utility>

namespace orivanta::server {

std::shared_ptr<const Representation> RepresentationCache::get(
    const std::string& key, const std::function<Representation()>& make) {
  if (auto known = find(key)) return known;
  auto made = std::make_shared<const Representation>(make());
  insert({key, made});
  return made;
}

std::shared_ptr<const Representation> RepresentationCache::find(const std::string& key) {
  const std::lock_guard lock(mutex_);
  const auto known = index_.find(key);
  if (known == index_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, known->second);
  return entries_.front().representation;
}

void RepresentationCache::insert(Entry entry) {
  const std::lock_guard lock(mutex_);
  if (entry.bytes() > maximumBytes_ || index_.contains(entry.key)) return;
  bytes_ += entry.bytes();
  entries_.push_front(std::move(entry));
  index_.emplace(entries_.front().key, entries_.begin());
  while (bytes_ > maximumBytes_) {
    bytes_ -= entries_.back().bytes();
    index_.erase(entries_.back().key);
    entries_.pop_back();
  }
}

}  // namespace orivanta::server
