// Searches the places of a venue, see `LatestRequest`.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/PlaceSearch.hpp"

namespace orivanta::viewer {

/// Keeps references to the places and connectors.
class SearchWorker {
 public:
  using Request = std::string;  ///< the typed text
  using Answer = std::vector<PlaceGroup>;

  /// Searches the places and connectors of a loaded venue, which need not outlive the object.
  explicit SearchWorker(const Venue& venue) : searched_(venue) {}

  /// Searches places.
  explicit SearchWorker(std::vector<std::shared_ptr<Location>> places) {
    searched_.places = std::move(places);
  }

  /// Makes the index, which is empty if `end` is canceled.
  void prepare(const foundation::CancellationToken& end) {
    if (!index_) index_ = std::make_unique<PlaceSearch>(searched_, end);
  }

  Answer answer(const Request& typed, const foundation::CancellationToken& token) const {
    return index_->find(typed, token);
  }

 private:
  SearchedPlaces searched_;
  std::unique_ptr<const PlaceSearch> index_;  // null before the first search
};

}  // namespace orivanta::viewer
