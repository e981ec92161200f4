// Searches that never hold up the window.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Search.hpp"

namespace orivanta::viewer {

/// Searches the places of a venue on a background thread. Keeps the places. Main thread.
class BackgroundSearch {
 public:
  /// `found` is called from the main queue, once for each search that is not replaced, and not
  /// after this object has gone.
  using Found = std::function<void(std::vector<PlaceGroup>)>;
  BackgroundSearch(std::vector<std::shared_ptr<Location>> places, Found found);
  ~BackgroundSearch();
  BackgroundSearch(const BackgroundSearch&) = delete;
  BackgroundSearch& operator=(const BackgroundSearch&) = delete;

  /// Begins a search, as `SearchIndex::find` makes it, in the place of one that is under way.
  void start(std::string typed);

  /// Ends the search under way, if any.
  void cancel();

  bool isBusy() const { return isBusy_; }

 private:
  struct Work;

  std::shared_ptr<Work> work_;
  std::shared_ptr<Found> found_;
  bool isBusy_ = false;
};

}  // namespace orivanta::viewer
