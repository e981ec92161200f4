#include "Apps/Server/ConnectionTable.hpp"

#include <utility>

namespace orivanta::server {

ConnectionTable::Place ConnectionTable::enter(Time now, std::function<void()> close) {
  const std::lock_guard lock(mutex_);
  return idle_.insert(idle_.end(), {std::move(close), Phase::idle, now, false});
}

void ConnectionTable::leave(Place place) {
  const std::lock_guard lock(mutex_);
  (place->isClosing ? closing_ : listOf(place->phase)).erase(place);
}

bool ConnectionTable::update(Place place, Phase phase, Time now) {
  const std::lock_guard lock(mutex_);
  if (place->isClosing) return false;
  std::list<Entry>& next = listOf(phase);
  next.splice(next.end(), listOf(place->phase), place);
  place->phase = phase;
  place->since = now;
  return true;
}

bool ConnectionTable::makeRoom(Time now) {
  {
    const std::lock_guard lock(mutex_);
    if (idle_.size() + working_.size() + sending_.size() < capacity_) return true;
  }
  return closeOne(now);
}

bool ConnectionTable::closeOne(Time now) {
  std::unique_lock lock(mutex_);
  return closeFirst(idle_.empty() ? stalled(now) : &idle_, std::move(lock));
}

void ConnectionTable::closeStalled(Time now) {
  std::unique_lock lock(mutex_);
  closeFirst(stalled(now), std::move(lock));
}

std::list<ConnectionTable::Entry>& ConnectionTable::listOf(Phase phase) {
  if (phase == Phase::idle) return idle_;
  return phase == Phase::working ? working_ : sending_;
}

std::list<ConnectionTable::Entry>* ConnectionTable::stalled(Time now) {
  return !sending_.empty() && now - sending_.front().since >= stallTime_ ? &sending_ : nullptr;
}

bool ConnectionTable::closeFirst(std::list<Entry>* list, std::unique_lock<std::mutex> lock) {
  if (list == nullptr) return false;
  Entry& entry = list->front();
  entry.isClosing = true;
  closing_.splice(closing_.end(), *list, list->begin());
  const std::function<void()> close = std::exchange(entry.close, nullptr);
  lock.unlock();
  close();
  return true;
}

}  // namespace orivanta::server
