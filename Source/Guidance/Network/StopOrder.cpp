#include "Source/Guidance/Network/StopOrder.hpp"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/ParallelFor.hpp"

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;
using Order = std::vector<std::size_t>;

constexpr std::size_t mostExactStops = 12;
constexpr std::size_t mostExactSteps = std::size_t{1} << 28U;
constexpr std::size_t mostStops = 200;
constexpr std::size_t mostVertices = 4096;
constexpr std::uint64_t mostVisitedNodes = std::uint64_t{1} << 29U;  // by all searches together
constexpr int mostSweeps = 50;
constexpr std::int64_t impossible = std::numeric_limits<std::int64_t>::max() / 4;

// The costs between all vertices of all stops.
class VertexMatrix {
 public:
  VertexMatrix(const SearchContext& context, const CostTable& costs,
               const std::vector<const Ends*>& stops)
      : context_(context), costs_(costs), stops_(stops) {
    for (std::size_t stop = 0; stop < stops.size(); ++stop) {
      first_.push_back(vertices_.size());
      for (const Index vertex : stops[stop]->vertices) {
        vertices_.push_back(vertex);
        stopOf_.push_back(stop);
      }
    }
    first_.push_back(vertices_.size());
    values_.assign(vertices_.size() * vertices_.size(), impossible);
    foundation::parallelFor(first_[stops.size() - 1], [&](std::size_t row) { fill(row); });
  }

  std::size_t size() const { return vertices_.size(); }
  std::size_t first(std::size_t stop) const { return first_[stop]; }
  std::size_t stopOf(std::size_t vertex) const { return stopOf_[vertex]; }
  std::int64_t operator()(std::size_t from, std::size_t to) const {
    return values_[from * size() + to];
  }

 private:
  void fill(std::size_t row) {
    if (context_.token.isCanceled()) return;
    const Ends& start = *stops_[stopOf_[row]];
    std::unordered_multimap<Index, std::size_t> columns;
    NetworkSearch search(context_, costs_, stops_.size());
    for (std::size_t column = 0; column < size(); ++column)
      if (stopOf_[column] != stopOf_[row]) columns.emplace(vertices_[column], column);
    for (std::size_t stop = 0; stop < stops_.size(); ++stop)
      if (stop != stopOf_[row]) search.aimAt(*stops_[stop]);
    search.startFrom(start, vertices_[row]);
    for (std::size_t left = columns.size(); left != 0;) {
      const auto vertex = search.next();
      if (!vertex) break;
      const auto [begin, end] = columns.equal_range(*vertex);
      for (auto entry = begin; entry != end; ++entry) {
        std::int64_t& value = values_[row * size() + entry->second];
        if (value == impossible) --left;
        value = search.cost(*vertex);
      }
    }
  }

  const SearchContext& context_;
  const CostTable& costs_;
  const std::vector<const Ends*>& stops_;
  std::vector<Index> vertices_;
  std::vector<std::size_t> stopOf_;
  std::vector<std::size_t> first_;  // the first vertex of each stop
  std::vector<std::int64_t> values_;
};

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

// The cost of an order: first, the number of hops between stops that are not connected.
struct OrderCost {
  std::size_t gaps = 0;
  std::int64_t cost = 0;

  friend auto operator<=>(const OrderCost&, const OrderCost&) = default;
};

// Finds a good order by the least costs between any nodes of two stops.
class GoodOrder {
 public:
  GoodOrder(const VertexMatrix& matrix, std::size_t stopCount,
            const foundation::CancellationToken& token)
      : count_(stopCount), token_(token), costs_(stopCount * stopCount, impossible) {
    for (std::size_t from = 0; from < matrix.size(); ++from)
      for (std::size_t to = 0; to < matrix.size(); ++to) {
        std::int64_t& cost = costs_[matrix.stopOf(from) * count_ + matrix.stopOf(to)];
        cost = std::min(cost, matrix(from, to));
      }
  }

  std::optional<Order> run() {
    order_ = {0, count_ - 1};
    for (std::size_t stop = 1; stop + 1 < count_ && !token_.isCanceled(); ++stop) insert(stop);
    for (int sweep = 0; sweep < mostSweeps && improve(); ++sweep) {
    }
    if (token_.isCanceled() || costOf(order_).gaps != 0) return std::nullopt;
    return std::move(order_);
  }

 private:
  OrderCost costOf(const Order& order) const {
    OrderCost sum;
    for (std::size_t i = 1; i < order.size(); ++i) {
      const std::int64_t cost = costs_[order[i - 1] * count_ + order[i]];
      if (cost >= impossible)
        ++sum.gaps;
      else
        sum.cost += cost;
    }
    return sum;
  }

  void insert(std::size_t stop) {
    Order best;
    OrderCost least;
    for (std::size_t place = 1; place < order_.size(); ++place) {
      Order tried = order_;
      tried.insert(tried.begin() + static_cast<std::ptrdiff_t>(place), stop);
      const OrderCost cost = costOf(tried);
      if (!best.empty() && cost >= least) continue;
      least = cost;
      best = std::move(tried);
    }
    order_ = std::move(best);
  }

  // Returns whether reversing a part helped.
  bool improve() {
    OrderCost least = costOf(order_);
    bool improved = false;
    for (auto first = order_.begin() + 1; first < order_.end() - 2; ++first) {
      if (token_.isCanceled()) return false;
      for (auto end = first + 2; end < order_.end(); ++end) {
        std::reverse(first, end);
        const OrderCost cost = costOf(order_);
        if (cost < least) {
          least = cost;
          improved = true;
        } else {
          std::reverse(first, end);
        }
      }
    }
    return improved;
  }

  std::size_t count_;
  const foundation::CancellationToken& token_;
  std::vector<std::int64_t> costs_;  // by stops
  Order order_;
};

}  // namespace

std::optional<std::vector<std::size_t>> cheapestOrder(const SearchContext& context,
                                                      const CostTable& costs,
                                                      const std::vector<const Ends*>& stops) {
  Order given(stops.size());
  for (std::size_t i = 0; i < given.size(); ++i) given[i] = i;
  std::size_t vertexCount = 0;
  for (const Ends* stop : stops) vertexCount += stop->vertices.size();
  if (stops.size() < 4 || stops.size() > mostStops + 2 || vertexCount > mostVertices ||
      vertexCount * std::uint64_t{context.network.size()} > mostVisitedNodes)
    return given;
  const VertexMatrix matrix(context, costs, stops);
  if (context.token.isCanceled()) return std::nullopt;
  const std::size_t between = stops.size() - 2;
  if (between <= mostExactStops && matrix.size() * matrix.size() <= mostExactSteps >> between)
    return ExactOrder(matrix, stops.size()).run();
  return GoodOrder(matrix, stops.size(), context.token).run();
}

}  // namespace orivanta::guidance
