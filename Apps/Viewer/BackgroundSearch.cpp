#include "Apps/Viewer/BackgroundSearch.hpp"

#include <atomic>
#include <cstdint>
#include <optional>
#include <utility>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/SerialQueue.hpp"

namespace orivanta::viewer {

// What a search in the background uses; it may outlive the object that began it.
struct BackgroundSearch::Work {
  std::shared_ptr<foundation::SerialQueue> queue = foundation::SerialQueue::make();
  std::atomic<std::uint64_t> wanted = 0;  // the number of the newest search
  std::atomic<bool> isOver = false;

  // On the queue only. The index may be empty once `isOver` is true.
  std::vector<std::shared_ptr<Location>> places;
  std::unique_ptr<const PlaceSearch> index;

  // Nothing if the search was replaced or ended.
  std::optional<std::vector<PlaceGroup>> find(const std::string& typed, std::uint64_t number) {
    if (!index) index = std::make_unique<PlaceSearch>(places, [this] { return isOver.load(); });
    const auto isReplaced = [&] { return isOver || wanted != number; };
    if (isReplaced()) return std::nullopt;
    auto groups = index->find(typed, isReplaced);
    return isReplaced() ? std::nullopt : std::optional(std::move(groups));
  }
};

BackgroundSearch::BackgroundSearch(std::vector<std::shared_ptr<Location>> places, Found found)
    : work_(std::make_shared<Work>()),
      found_(std::make_shared<Found>([this, tell = std::move(found)](auto groups) {
        isBusy_ = false;
        tell(std::move(groups));
      })) {
  work_->places = std::move(places);
}

BackgroundSearch::~BackgroundSearch() { work_->isOver = true; }

void BackgroundSearch::start(std::string typed) {
  isBusy_ = true;
  work_->queue->async([work = work_, typed = std::move(typed), number = ++work_->wanted,
                       found = std::weak_ptr(found_)] {
    auto groups = work->find(typed, number);
    if (!groups) return;
    foundation::mainQueue::async([work, number, found, groups = std::move(*groups)]() mutable {
      const auto tell = found.lock();
      if (tell && work->wanted == number) (*tell)(std::move(groups));
    });
  });
}

void BackgroundSearch::cancel() {
  ++work_->wanted;
  isBusy_ = false;
}

}  // namespace orivanta::viewer
