#include "Source/Guidance/Network/GoodOrder.hpp"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <utility>

namespace orivanta::guidance {

namespace {

using Order = std::vector<std::size_t>;

constexpr int mostSweeps = 50;

// The cost of an order: first, the number of hops between stops that are not connected.
struct OrderCost {
  std::size_t gaps = 0;
  std::int64_t cost = 0;

  friend auto operator<=>(const OrderCost&, const OrderCost&) = default;  // NOLINT: no pointer
};

// Finds a good order by the least costs between any nodes of two stops.
class GoodOrder {
 public:
  GoodOrder(const VertexMatrix& matrix, std::size_t stopCount,
            const foundation::CancellationToken& token)
      : count_(stopCount), token_(token), costs_(stopCount * stopCount, VertexMatrix::impossible) {
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
      if (cost >= VertexMatrix::impossible)
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

std::optional<std::vector<std::size_t>> goodOrder(const VertexMatrix& matrix, std::size_t stopCount,
                                                  const foundation::CancellationToken& token) {
  return GoodOrder(matrix, stopCount, token).run();
}

}  // namespace orivanta::guidance
