// The costs between the nodes of several stops.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "Source/Guidance/Network/NetworkSearch.hpp"

namespace orivanta::guidance {

/// The costs between all nodes of different stops, numbered by stop.
class VertexMatrix {
 public:
  /// More than any cost; the sum of two can be computed.
  static constexpr std::int64_t impossible = std::numeric_limits<std::int64_t>::max() / 4;

  /// Runs the searches concurrently. All arguments must outlive it. If the search is canceled, the
  /// costs that were not found are `impossible`.
  VertexMatrix(const SearchContext& context, const CostTable& costs,
               const std::vector<const Ends*>& stops);

  std::size_t size() const { return vertices_.size(); }
  std::size_t first(std::size_t stop) const { return first_[stop]; }
  std::size_t stopOf(std::size_t vertex) const { return stopOf_[vertex]; }
  std::int64_t operator()(std::size_t from, std::size_t to) const {
    return values_[from * size() + to];
  }

 private:
  using Index = GuideNetwork::Index;

  void fill(std::size_t row);

  const SearchContext& context_;
  const CostTable& costs_;
  const std::vector<const Ends*>& stops_;
  std::vector<Index> vertices_;
  std::vector<std::size_t> stopOf_;
  std::vector<std::size_t> first_;  // the first vertex of each stop
  std::vector<std::int64_t> values_;
};

}  // namespace orivanta::guidance
