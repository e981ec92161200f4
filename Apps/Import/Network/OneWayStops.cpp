#include "Apps/Import/Network/OneWayStops.hpp"

#include <utility>

namespace orivanta::importer {

void orientStops(const std::map<std::uint32_t, bool>& entered, Draft& draft) {
  for (DraftEdge& edge : draft.edges)
    for (const std::uint32_t end : {edge.from, edge.to}) {
      const auto stop = entered.find(end);
      if (stop == entered.end() || edge.oneWay) continue;
      if ((edge.to == end) != stop->second) std::swap(edge.from, edge.to);
      edge.oneWay = true;
    }
}

}  // namespace orivanta::importer
