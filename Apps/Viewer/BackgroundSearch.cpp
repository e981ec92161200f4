#include "Apps/Viewer/BackgroundSearch.hpp"

#include <optional>
#include <utility>

#include "Platform/Foundation/MainQueue.hpp"

namespace orivanta::viewer {

// The state that searches use on the queue. It may outlive the object that started them.
struct BackgroundSearch::Work {
  std::vector<std::shared_ptr<Location>> places;
  std::unique_ptr<const PlaceSearch> index;  // null before the first search
  foundation::CancellationSource end;        // cancels all work; the index may be empty then

  // Returns nothing if the search was canceled.
  std::optional<std::vector<PlaceGroup>> find(const std::string& typed,
                                              const foundation::CancellationToken& token) {
    if (token.isCanceled()) return std::nullopt;
    if (!index) index = std::make_unique<PlaceSearch>(places, end.token());
    auto groups = index->find(typed, token);
    return token.isCanceled() ? std::nullopt : std::optional(std::move(groups));
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

BackgroundSearch::~BackgroundSearch() {
  cancel();
  work_->end.cancel();
}

void BackgroundSearch::start(std::string typed) {
  cancel();
  search_ = foundation::CancellationSource();
  isBusy_ = true;
  queue_->async([work = work_, typed = std::move(typed), token = search_.token(),
                 found = std::weak_ptr(found_)] {
    auto groups = work->find(typed, token);
    if (!groups) return;
    foundation::mainQueue::async([token, found, groups = std::move(*groups)]() mutable {
      const auto tell = found.lock();
      if (tell && !token.isCanceled()) (*tell)(std::move(groups));
    });
  });
}

void BackgroundSearch::cancel() {
  search_.cancel();
  isBusy_ = false;
}

}  // namespace orivanta::viewer
