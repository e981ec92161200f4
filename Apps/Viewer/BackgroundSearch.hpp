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

/// Searches the places of a venue on a background thread. Keeps references to the places. Main
/// thread only.
class BackgroundSearch {
 public:
  /// Called from the main queue once for each search that is neither replaced nor canceled. Not
  /// called after this object is destroyed.
  using Found = std::function<void(std::vector<PlaceGroup>)>;
  BackgroundSearch(std::vector<std::shared_ptr<Location>> places, Found found);
  ~BackgroundSearch();
  BackgroundSearch(const BackgroundSearch&) = delete;
  BackgroundSearch& operator=(const BackgroundSearch&) = delete;

  /// Starts a `PlaceSearch::find`, which replaces the current search, if any.
  void start(std::string typed);

  /// Cancels the current search, if any.
  void cancel();

  bool isBusy() const { return isBusy_; }

 private:
  struct Work;

  const std::shared_ptr<foundation::SerialQueue> queue_ = foundation::SerialQueue::make();
  const std::shared_ptr<Work> work_;  // shared with the queue
  const std::shared_ptr<Found> found_;
  foundation::CancellationSource search_;  // the latest one
  bool isBusy_ = false;
};

}  // namespace orivanta::viewer
