#include "Apps/Server/RepresentationCache.hpp"

#include <utility>

namespace orivanta::server {

std::shared_ptr<const Representation> RepresentationCache::get(const std::string& key,
                                                               const Maker& make) {
  return get(key, make, true);
}

std::shared_ptr<const Representation> RepresentationCache::getWithoutWaiting(const std::string& key,
                                                                             const Maker& make) {
  return get(key, make, false);
}

std::shared_ptr<const Representation> RepresentationCache::get(const std::string& key,
                                                               const Maker& make, bool mayWait) {
  std::unique_lock lock(mutex_);
  for (;;) {
    if (auto known = find(key)) return known;
    if (!making_.contains(key)) break;
    if (!mayWait) return nullptr;
    made_.wait(lock);
  }
  dropUnused();
  if (bytes_ >= mostInUse_) return nullptr;
  making_.insert(key);
  lock.unlock();
  std::shared_ptr<const Representation> made;
  const auto finish = [&] {
    lock.lock();
    making_.erase(key);
    made_.notify_all();
  };
  try {
    made = std::make_shared<const Representation>(make());
  } catch (...) {
    finish();
    throw;
  }
  finish();
  insert({key, made});
  return made;
}

std::shared_ptr<const Representation> RepresentationCache::find(const std::string& key) {
  const auto known = index_.find(key);
  if (known == index_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, known->second);
  return entries_.front().representation;
}

void RepresentationCache::insert(Entry entry) {
  std::list<Entry> added;
  added.push_front(std::move(entry));
  index_.emplace(added.front().key, added.begin());
  bytes_ += added.front().bytes();
  entries_.splice(entries_.begin(), added);
  dropUnused();
}

void RepresentationCache::dropUnused() {
  for (auto entry = entries_.end(); bytes_ > maximumBytes_ && entry != entries_.begin();) {
    --entry;
    if (entry->representation.use_count() > 1) continue;
    bytes_ -= entry->bytes();
    index_.erase(entry->key);
    entry = entries_.erase(entry);
  }
}

}  // namespace orivanta::server
