// When a search arrives at its targets.
#pragma once

#include <unordered_map>

#include "Source/Guidance/Network/NetworkSearch.hpp"
#include "Source/Guidance/Network/PathMeasure.hpp"

namespace orivanta::guidance {

/// Computes the times of the paths of one search. The times of the nodes on the way are kept, so
/// that the effort for all targets is that of the search. The search must outlive it.
class ArrivalTimes {
 public:
  using Index = GuideNetwork::Index;

  ArrivalTimes(const NetworkSearch& search, const PathMeasure& measure)
      : search_(search), measure_(measure) {}

  /// Sets the time at which a path may begin at a start; otherwise it is 0.
  void beginAt(Index start, double seconds) { starts_[start] = seconds; }

  /// Returns the time of the arrival at a target that the search returned, in seconds.
  double at(Index target);

 private:
  const NetworkSearch& search_;
  PathMeasure measure_;
  std::unordered_map<Index, double> starts_;
  std::unordered_map<Index, double> known_;
};

}  // namespace orivanta::guidance
