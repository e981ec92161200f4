#include "Source/Guidance/Network/ArrivalTimes.hpp"

#include <algorithm>
#include <vector>

namespace orivanta::guidance {

// A known time is used only before a walk: a ride may continue one that leads to the node.
double ArrivalTimes::at(Index target) {
  std::vector<Hop> hops;
  double seconds = 0.0;
  Index vertex = target;
  while (true) {
    const auto hop = search_.hopInto(vertex);
    if (!hop) {
      if (const auto start = starts_.find(vertex); start != starts_.end()) seconds = start->second;
      break;
    }
    const auto known = known_.find(vertex);
    if (known != known_.end() && (hops.empty() || measure_.isWalk(hops.back()))) {
      seconds = known->second;
      break;
    }
    hops.push_back(*hop);
    vertex = hop->from;
  }
  std::reverse(hops.begin(), hops.end());
  for (auto hop = hops.cbegin(); hop != hops.cend();) {
    const auto end = measure_.endOfPart(hop, hops.cend());
    seconds += measure_.secondsOfPart(hop, end);
    hop = end;
    known_[(end - 1)->to] = seconds;
  }
  return seconds;
}

}  // namespace orivanta::guidance
