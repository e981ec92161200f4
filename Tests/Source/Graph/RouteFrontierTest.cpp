#include "Source/Graph/RouteFrontier.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <unordered_set>

#include "Tests/Support/LiteralPriorityQueue.hpp"

namespace orivanta {
namespace {

// The second frontier runs out of sequence numbers repeatedly.
TEST(RouteFrontier, TakesNodesInTheOrderOfTheList) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const double priorities[] = {0.0, 5e-324, 1.0, 1.5, 1e308, infinity};
  for (const std::uint32_t firstSequence : {0U, std::numeric_limits<std::uint32_t>::max() - 300}) {
    RouteFrontier frontier(firstSequence);
    std::mt19937 random(3);
    for (int repetition = 0; repetition < 20; ++repetition) {
      frontier.clear();
      test::LiteralPriorityQueue<std::uint32_t, double> list;
      std::unordered_set<std::uint32_t> queued;
      for (int step = 0; step < 2000; ++step) {
        const auto node = static_cast<std::uint32_t>(random() % 500);
        if (random() % 5 < 2 && !frontier.empty()) {
          const std::uint32_t taken = frontier.take();
          ASSERT_EQ(taken, list.next());
          queued.erase(taken);
        } else if (queued.insert(node).second) {
          const double priority = priorities[random() % 6];
          frontier.put(priority, node);
          list.put(node, priority);
        }
      }
      while (const auto expected = list.next()) {
        ASSERT_FALSE(frontier.empty());
        ASSERT_EQ(frontier.take(), *expected);
      }
      ASSERT_TRUE(frontier.empty());
    }
  }
}

}  // namespace
}  // namespace orivanta
