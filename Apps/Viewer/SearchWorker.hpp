// Searches the places of a venue, see `LatestRequest`.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/PlaceSearch.hpp"

namespace orivanta::viewer {

/// Keeps references to the places.
class SearchWorker {
 public:
  using Request = std::string;  ///< the typed text
  using Answer = std::vector<PlaceGroup>;

  explicit SearchWorker(std::vector<std::shared_ptr<Location>> places)
      : places_(std::move(places)) {}

  /// Makes the index, which is empty if `end` is canceled.
  void prepare(const foundation::CancellationToken& end) {
    if (!index_) index_ = std::make_unique<PlaceSearch>(places_, end);
  }

  Answer answer(const Request& typed, const foundation::CancellationToken& token) const {
    return index_->find(typed, token);
  }

 private:
  std::vector<std::shared_ptr<Location>> places_;
  std::unique_ptr<const PlaceSearch> index_;  // null before the first search
};

}  // namespace orivanta::viewer
