#include "Source/Guidance/Network/SequenceSearch.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;

// What is known of the vertices of a stop after the search that leads to it.
struct Layer {
  std::unordered_map<Index, std::int64_t> costs;  // from the first stop
  std::unordered_map<Index, Index> origins;       // the vertex of the stop before
  std::optional<NetworkPath> path;                // if only one vertex matters
};

class Sequence {
 public:
  Sequence(const SearchContext& context, const CostTable& costs,
           const std::vector<const Ends*>& stops, std::size_t stopCount)
      : context_(context), costs_(costs), stops_(stops), stopCount_(stopCount) {}

  // Returns whether the stop can be reached from the one before.
  bool advanceTo(std::size_t stop) {
    const Ends& target = *stops_[stop];
    const bool isLast = stop + 1 == stops_.size();
    const std::size_t wanted = isLast ? 1 : target.vertices.size();
    NetworkSearch search(context_, costs_, stopCount_);
    search.aimAt(target);
    if (wanted == 1) search.guide();
    if (stop == 1)
      search.startFrom(*stops_[0]);
    else
      for (const auto& [vertex, cost] : layers_.back().costs)
        search.startFrom(*stops_[stop - 1], vertex, cost);
    Layer layer;
    while (layer.costs.size() < wanted) {
      const auto vertex = search.next();
      if (!vertex) break;
      layer.costs[*vertex] = search.cost(*vertex);
      layer.origins[*vertex] = search.startOf(*vertex);
      if (wanted == 1) layer.path = search.pathTo(*vertex);
    }
    layers_.push_back(std::move(layer));
    return !layers_.back().costs.empty();
  }

  std::vector<NetworkPath> paths() {
    std::vector<NetworkPath> paths(layers_.size());
    Index vertex = layers_.back().path->last();
    for (std::size_t i = layers_.size(); i-- != 0;) {
      Layer& layer = layers_[i];
      const Index origin = layer.origins.at(vertex);
      paths[i] = layer.path ? std::move(*layer.path) : pathBetween(i, origin, vertex);
      vertex = origin;
    }
    return paths;
  }

 private:
  NetworkPath pathBetween(std::size_t stop, Index origin, Index target) const {
    NetworkSearch search(context_, costs_, stopCount_);
    search.aimAt(*stops_[stop + 1], target);
    search.guide();
    search.startFrom(*stops_[stop], origin);
    if (!search.next()) return {origin, {}, 0};  // canceled
    return search.pathTo(target);
  }

  const SearchContext& context_;
  const CostTable& costs_;
  const std::vector<const Ends*>& stops_;
  std::size_t stopCount_;
  std::vector<Layer> layers_;
};

}  // namespace

std::optional<std::vector<NetworkPath>> cheapestSequence(const SearchContext& context,
                                                         const CostTable& costs,
                                                         const std::vector<const Ends*>& stops,
                                                         std::size_t stopCount,
                                                         std::size_t* failed) {
  Sequence sequence(context, costs, stops, stopCount);
  for (std::size_t stop = 1; stop < stops.size(); ++stop)
    if (!sequence.advanceTo(stop)) {
      *failed = stop;
      return std::nullopt;
    }
  auto paths = sequence.paths();
  if (context.token.isCanceled()) return std::nullopt;
  return paths;
}

}  // namespace orivanta::guidance
