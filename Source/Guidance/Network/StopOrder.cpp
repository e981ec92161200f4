#include "Source/Guidance/Network/StopOrder.hpp"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>

#include "Source/Guidance/Network/GoodOrder.hpp"
#include "Source/Guidance/Network/VertexMatrix.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::guidance {

namespace {

using Order = std::vector<std::size_t>;

constexpr std::size_t mostExactStops = 12;
constexpr std::size_t mostExactSteps = std::size_t{1} << 28U;
constexpr std::size_t mostVertices = 4096;
constexpr std::uint64_t mostVisitedNodes = std::uint64_t{1} << 29U;  // by all searches together
constexpr std::int64_t impossible = VertexMatrix::impossible;

// Held and Karp: the cheapest way to each vertex for each set of visited stops in between.
class ExactOrder {
 public:
  ExactOrder(const VertexMatrix& matrix, std::size_t stopCount)
      : matrix_(matrix),
        between_(stopCount - 2),
        begin_(matrix.first(1)),
        end_(matrix.first(stopCount - 1)),
        costs_((std::size_t{1} << between_) * (end_ - begin_), impossible) {}

  std::optional<Order> run() {
    for (std::size_t vertex = begin_; vertex < end_; ++vertex)
      for (std::size_t from = 0; from < begin_; ++from)
        at(bitOf(vertex), vertex) = std::min(at(bitOf(vertex), vertex), matrix_(from, vertex));
    const std::size_t all = (std::size_t{1} << between_) - 1;
    for (std::size_t visited = 1; visited < all; ++visited) extend(visited);
    return backFrom(all);
  }

 private:
  std::size_t bitOf(std::size_t vertex) const {
    return std::size_t{1} << (matrix_.stopOf(vertex) - 1);
  }
  std::int64_t& at(std::size_t visited, std::size_t vertex) {
    return costs_[visited * (end_ - begin_) + vertex - begin_];
  }

  void extend(std::size_t visited) {
    for (std::size_t from = begin_; from < end_; ++from) {
      const std::int64_t cost = at(visited, from);
      if (cost >= impossible) continue;
      for (std::size_t to = begin_; to < end_; ++to) {
        if ((visited & bitOf(to)) != 0) continue;
        std::int64_t& best = at(visited | bitOf(to), to);
        best = std::min(best, cost + matrix_(from, to));
      }
    }
  }

  std::optional<Order> backFrom(std::size_t visited) {
    std::int64_t best = impossible;
    std::size_t last = end_;
    for (std::size_t vertex = begin_; vertex < end_; ++vertex)
      for (std::size_t goal = end_; goal < matrix_.size(); ++goal)
        if (const auto cost = at(visited, vertex) + matrix_(vertex, goal); cost < best) {
          best = cost;
          last = vertex;
        }
    if (last == end_) return std::nullopt;
    Order order{between_ + 1};
    while (true) {
      order.push_back(matrix_.stopOf(last));
      const std::size_t before = visited & ~bitOf(last);
      if (before == 0) break;
      std::size_t vertex = begin_;
      while ((before & bitOf(vertex)) == 0 ||
             at(before, vertex) + matrix_(vertex, last) != at(visited, last))
        ++vertex;
      visited = before;
      last = vertex;
    }
    order.push_back(0);
    std::reverse(order.begin(), order.end());
    return order;
  }

  const VertexMatrix& matrix_;
  std::size_t between_;
  std::size_t begin_, end_;  // the vertices of the stops in between
  std::vector<std::int64_t> costs_;
};

}  // namespace

std::optional<std::vector<std::size_t>> cheapestOrder(const SearchContext& context,
                                                      const CostTable& costs,
                                                      const std::vector<const Ends*>& stops) {
  Order given(stops.size());
  std::iota(given.begin(), given.end(), 0U);
  std::size_t vertexCount = 0;
  for (const Ends* stop : stops) vertexCount += stop->vertices.size();
  if (stops.size() < 4 || stops.size() > Request::mostStopsInBestOrder ||
      vertexCount > mostVertices ||
      vertexCount * std::uint64_t{context.network.size()} > mostVisitedNodes)
    return given;
  const VertexMatrix matrix(context, costs, stops);
  if (context.token.isCanceled()) return std::nullopt;
  const std::size_t between = stops.size() - 2;
  if (between <= mostExactStops && matrix.size() * matrix.size() <= mostExactSteps >> between)
    return ExactOrder(matrix, stops.size()).run();
  return goodOrder(matrix, stops.size(), context.token);
}

}  // namespace orivanta::guidance
