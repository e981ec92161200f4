#include "Apps/Server/ConnectionTable.hpp"

#include <utility>

namespace orivanta::server {

ConnectionTable::Place ConnectionTable::enter(Time now, std::function<void()> close) {
  const std::lock_guard lock(mutex_);
  return idle_.insert(idle_.end(), {std::move(close), Phase::idle, now, now});
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
  if (place->phase == Phase::idle) place->start += now - place->since;
  place->phase = phase;
  place->since = now;
  return true;
}

void ConnectionTable::progress(Place place, std::uint64_t bytes, Time now) {
  const std::lock_guard lock(mutex_);
  if (place->isClosing) return;
  sending_.splice(sending_.end(), sending_, place);
  place->since = now;
  place->taken += bytes;
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
  return close(idle_.empty() ? sender(now) : idle_.begin(), std::move(lock));
}

bool ConnectionTable::closeSender(Time now) {
  std::unique_lock lock(mutex_);
  return close(sender(now), std::move(lock));
}

std::list<ConnectionTable::Entry>& ConnectionTable::listOf(Phase phase) {
  if (phase == Phase::idle) return idle_;
  return phase == Phase::working ? working_ : sending_;
}

// Returns the end of `sending_` if no connection may be closed.
ConnectionTable::Place ConnectionTable::sender(Time now) {
  if (!sending_.empty() && now - sending_.front().since >= stallTime_) return sending_.begin();
  Place slowest = sending_.end();
  double lowestRate = 0;
  for (Place place = sending_.begin(); place != sending_.end(); ++place) {
    const Time::duration age = now - place->start;
    if (age < grace_) continue;
    const double rate = static_cast<double>(place->taken) / static_cast<double>(age.count());
    if (slowest != sending_.end() && rate >= lowestRate) continue;
    slowest = place;
    lowestRate = rate;
  }
  return slowest;
}

bool ConnectionTable::close(Place place, std::unique_lock<std::mutex> lock) {
  if (place == sending_.end()) return false;
  place->isClosing = true;
  closing_.splice(closing_.end(), listOf(place->phase), place);
  const std::function<void()> close = std::exchange(place->close, nullptr);
  lock.unlock();
  close();
  return true;
}

}  // namespace orivanta::server
