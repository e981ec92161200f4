#include "Source/VenueStore.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <numeric>
#include <system_error>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Sorting.hpp"
#include "Source/FolderStorage.hpp"

namespace orivanta {

std::shared_ptr<VenueStore> VenueStore::make(std::shared_ptr<VenueStorage> storage,
                                             Options options) {
  foundation::unwrap(storage);
  return std::shared_ptr<VenueStore>(new VenueStore(std::move(storage), std::move(options)));
}

std::shared_ptr<VenueStore> VenueStore::inCachesDirectory() {
  const auto caches = foundation::cachesDirectory();
  std::error_code failure;
  if (!caches || !std::filesystem::is_directory(*caches, failure)) return nullptr;
  return make(std::make_shared<FolderStorage>(*caches / "venues", *caches), {});
}

VenueStore::VenueStore(std::shared_ptr<VenueStorage> storage, Options options)
    : storage_(std::move(storage)),
      options_(std::move(options)),
      queue_(foundation::SerialQueue::make()) {}

// The queue waits while an operation runs, which may end on another thread.
void VenueStore::run(std::function<void(Finished finished)> operation) {
  queue_->async([self = shared_from_this(), operation = std::move(operation)] {
    self->queue_->suspend();
    const auto once = std::make_shared<std::once_flag>();
    const Finished finished = [self, once] {
      std::call_once(*once, [&] { self->queue_->resume(); });
    };
    try {
      operation(finished);
    } catch (const std::exception& exception) {  // out of memory
      self->fail({"store", 0, exception.what()});
      finished();
    }
  });
}

void VenueStore::whenIdle(std::function<void()> done) { queue_->async(std::move(done)); }

void VenueStore::save(const std::string& key, VenueStorage::Entry entry) {
  if (entry.bytes.size() > options_.mostBytes)
    return fail({"store", 0, "the venue is larger than the store"});
  const auto shared = std::make_shared<VenueStorage::Entry>(std::move(entry));
  run([this, key, shared](const Finished& finished) {
    storage_->save(key, std::move(*shared),
                   [this, finished](const foundation::Result<void>& result) {
                     if (!result) fail(result.error());
                     finished();
                   });
  });
  makeRoom();
}

void VenueStore::load(const std::string& key,
                      std::function<void(std::optional<VenueStorage::Loaded>)> done) {
  run([this, key, done = std::move(done)](const Finished& finished) {
    storage_->load(key, [done, finished](std::optional<VenueStorage::Loaded> entry) {
      foundation::SerialQueue::make()->async(
          [done, shared = std::make_shared<std::optional<VenueStorage::Loaded>>(std::move(entry))] {
            done(std::move(*shared));
          });
      finished();
    });
  });
}

void VenueStore::list(std::function<void(std::vector<Listed>)> done) {
  run([this, done = std::move(done)](const Finished& finished) {
    storage_->list([done, finished](std::vector<Listed> entries) {
      done(std::move(entries));
      finished();
    });
  });
}

void VenueStore::remove(const std::string& key) {
  run([this, key](const Finished& finished) {
    {
      const std::lock_guard lock(mutex_);
      uses_.erase(key);
    }
    storage_->remove(key, [finished](bool) { finished(); });
  });
}

void VenueStore::protect(const std::string& key, std::weak_ptr<void> user) {
  auto hold = storage_->hold(key);
  const std::lock_guard lock(mutex_);
  std::erase_if(uses_, [](const auto& entry) { return entry.second.user.expired(); });
  uses_.emplace(key, Use{std::move(user), std::move(hold)});
}

bool VenueStore::isUsed(const std::string& key) {
  const std::lock_guard lock(mutex_);
  std::erase_if(uses_, [](const auto& entry) { return entry.second.user.expired(); });
  return uses_.count(key) > 0;
}

void VenueStore::makeRoom() {
  run([this](const Finished& finished) {
    storage_->list([this, finished](std::vector<Listed> entries) {
      foundation::sort(entries.begin(), entries.end(), [](const Listed& left, const Listed& right) {
        return left.usedAt > right.usedAt;
      });
      const std::size_t bytes =
          std::accumulate(entries.begin(), entries.end(), std::size_t{0},
                          [](std::size_t sum, const Listed& entry) { return sum + entry.bytes; });
      removeOldest(std::move(entries), bytes, finished);
    });
  });
}

// The oldest entry is the last one.
void VenueStore::removeOldest(std::vector<Listed> entries, std::size_t bytes,
                              const Finished& finished) {
  while (!entries.empty() && isUsed(entries.back().key)) entries.pop_back();
  if (entries.empty() || bytes <= options_.mostBytes) return finished();
  const Listed oldest = std::move(entries.back());
  entries.pop_back();
  storage_->remove(oldest.key, [this, entries = std::move(entries), bytes, size = oldest.bytes,
                                finished](bool isRemoved) mutable {
    removeOldest(std::move(entries), isRemoved ? bytes - size : bytes, finished);
  });
}

void VenueStore::fail(const foundation::Error& error) {
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(hasFailed_, true)) return;
  }
  if (options_.failed) return options_.failed(error);
  foundation::diagnostic(fmt::format("the venue is not stored: {}", error.description));
}

}  // namespace orivanta
