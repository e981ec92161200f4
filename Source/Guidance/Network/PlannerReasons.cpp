// Why there is no route.
#include <algorithm>

#include "Source/Guidance/Network/Planner.hpp"

namespace orivanta::guidance {

// Finds the reason why the stop at this place of the order cannot be reached.
void Planner::explain(std::size_t place) {
  problem_ = {Problem::Kind::unreachable, order_[place]};
  if (context_.token.isCanceled()) return;
  if (closing_[order_[place]]) {
    problem_->kind = *closing_[order_[place]];
    return;
  }
  std::size_t ignored = 0;
  const auto closing = std::find_if(closing_.begin(), closing_.end(),
                                    [](const auto& kind) { return kind.has_value(); });
  if (closing != closing_.end() && search(*costs_, order_, nullptr, &ignored)) {
    problem_ = {**closing, static_cast<std::size_t>(closing - closing_.begin())};
    return;
  }
  if (request_.bestOrder)  // a stop that cannot be reached from the start is the more likely reason
    for (std::size_t stop = 1; stop < stops_.size(); ++stop)
      if (!search(*costs_, {0, stop}, nullptr, &ignored)) {
        problem_ = reasonFor({0, stop}, 1);
        return;
      }
  problem_ = reasonFor(order_, place);
}

// The reason that remains longest is told: what can never be reached, then what the profile
// excludes, then what is closed.
Problem Planner::reasonFor(const Order& order, std::size_t place) const {
  const auto fastest = data_.costs.table(Profile::fastest());
  if (const auto stop = failingStop(*fastest, order)) return {Problem::Kind::unreachable, *stop};
  const auto open = data_.costs.table(request_.profile);
  if (const auto stop = failingStop(*open, order)) return {Problem::Kind::onlyWithSteps, *stop};
  return {Problem::Kind::closed, order[place]};
}

// Returns the first stop that cannot be reached, whatever the opening hours.
std::optional<std::size_t> Planner::failingStop(const CostTable& costs, Order order) const {
  if (request_.bestOrder && order.size() == stops_.size()) order = bestOrder(costs);
  std::size_t failing = 0;
  if (search(costs, order, nullptr, &failing)) return std::nullopt;
  return order[failing];
}

}  // namespace orivanta::guidance
