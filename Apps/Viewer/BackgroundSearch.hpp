// Searches that do not block the main thread.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/Guidance/PlaceSearch.hpp"

namespace orivanta::viewer {

/// Searches the places of a venue on a background thread. Keeps the places. For the main thread.
class BackgroundSearch {
 public:
  /// Called from the main queue once for each search that is neither replaced nor canceled, and not
  /// after this object is gone.
  using Found = std::function<void(std::vector<PlaceGroup>)>;
  BackgroundSearch(std::vector<std::shared_ptr<Location>> places, Found found);
  ~BackgroundSearch();
  BackgroundSearch(const BackgroundSearch&) = delete;
  BackgroundSearch& operator=(const BackgroundSearch&) = delete;

  /// Starts a `PlaceSearch::find`. It replaces the search that is under way, if there is one.
  void start(std::string typed);

  /// Cancels the search that is under way, if there is one.
  void cancel();

  bool isBusy() const { return isBusy_; }

 private:
  struct Work;

  const std::shared_ptr<foundation::SerialQueue> queue_ = foundation::SerialQueue::make();
  const std::shared_ptr<Work> work_;  // for the queue
  const std::shared_ptr<Found> found_;
  foundation::CancellationSource search_;  // the last one
  bool isBusy_ = false;
};

}  // namespace orivanta::viewer
