#include "Source/Guidance/Network/SequenceSearch.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "Source/Guidance/Network/PathMeasure.hpp"

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;

// What is known of the vertices of a stop after the search that leads to it.
struct Layer {
  std::unordered_map<Index, std::int64_t> costs;  // from the first stop
  std::unordered_map<Index, Index> origins;       // the vertex of the stop before
  std::unordered_map<Index, double> seconds;      // from the first stop; if arrivals are checked
  std::optional<NetworkPath> path;                // if only one vertex matters
};

class Sequence {
 public:
  Sequence(const SearchContext& context, const CostTable& costs,
           const std::vector<const Ends*>& stops, std::size_t stopCount, const Arrivals* arrivals)
      : context_(context),
        costs_(costs),
        stops_(stops),
        stopCount_(stopCount),
        arrivals_(arrivals) {}

  // Returns whether the stop can be reached from the one before.
  bool advanceTo(std::size_t stop) {
    const Ends& target = *stops_[stop];
    const bool isLast = stop + 1 == stops_.size();
    std::size_t left = target.vertices.size();
    const std::size_t wanted = isLast ? 1 : left;
    NetworkSearch search(context_, costs_, stopCount_);
    search.aimAt(target);
    if (wanted == 1) search.guide();
    if (stop == 1)
      search.startFrom(*stops_[0]);
    else
      for (const auto& [vertex, cost] : layers_.back().costs)
        search.startFrom(*stops_[stop - 1], vertex, cost);
    Layer layer;
    for (; layer.costs.size() < wanted && left != 0; --left) {
      const auto vertex = search.next();
      if (!vertex) break;
      if (arrivals_ != nullptr && !accepts(stop, *vertex, search, layer)) continue;
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
  bool accepts(std::size_t stop, Index vertex, const NetworkSearch& search, Layer& layer) const {
    const NetworkPath path = search.pathTo(vertex);
    double seconds =
        PathMeasure(context_.network, arrivals_->metersPerSecond, stops_[stop - 1], stops_[stop])
            .seconds(path);
    if (!layers_.empty()) seconds += layers_.back().seconds.at(path.first);
    layer.seconds[vertex] = seconds;
    return arrivals_->accepts(stop, vertex, seconds);
  }

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
  const Arrivals* arrivals_;  // may be null
  std::vector<Layer> layers_;
};

}  // namespace

std::optional<std::vector<NetworkPath>> cheapestSequence(
    const SearchContext& context, const CostTable& costs, const std::vector<const Ends*>& stops,
    std::size_t stopCount, const Arrivals* arrivals, std::size_t* failed) {
  Sequence sequence(context, costs, stops, stopCount, arrivals);
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
