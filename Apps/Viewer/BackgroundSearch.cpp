#include "Apps/Viewer/BackgroundSearch.hpp"

#include <utility>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/SerialQueue.hpp"

namespace orivanta::viewer {

// What the background uses; it may outlive the object that started it.
struct BackgroundSearch::Work {
  std::shared_ptr<foundation::SerialQueue> queue = foundation::SerialQueue::make();
  std::vector<std::shared_ptr<Location>> places;  // on the queue only, like the index
  std::unique_ptr<const PlaceSearch> index;       // null before the first search
};

BackgroundSearch::BackgroundSearch(std::vector<std::shared_ptr<Location>> places, Found found)
    : work_(std::make_shared<Work>()), found_(std::move(found)) {
  work_->places = std::move(places);
}

BackgroundSearch::~BackgroundSearch() {
  cancel();
  indexing_.cancel();
}

void BackgroundSearch::start(std::string typed) {
  cancel();
  isBusy_ = true;
  work_->queue->async([this, work = work_, typed = std::move(typed), indexing = indexing_.token(),
                       search = search_.token()] {
    if (search.isCanceled()) return;
    if (!work->index) work->index = std::make_unique<PlaceSearch>(work->places, indexing);
    auto groups = work->index->find(typed, search);
    foundation::mainQueue::async([this, search, groups = std::move(groups)]() mutable {
      if (search.isCanceled()) return;  // then this object may be gone
      isBusy_ = false;
      found_(std::move(groups));
    });
  });
}

void BackgroundSearch::cancel() {
  std::exchange(search_, {}).cancel();
  isBusy_ = false;
}

}  // namespace orivanta::viewer
