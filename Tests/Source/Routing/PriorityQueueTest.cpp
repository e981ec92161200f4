#include "Source/Routing/PriorityQueue.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Source/RawData.hpp"
#include "Tests/Support/LiteralPriorityQueue.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

using Pairs = std::vector<std::pair<std::string, double>>;

TEST(PriorityQueue, AGeneratorTakesFromTheLiveQueue) {
  PriorityQueue<std::string, double> queue;
  const auto generator = queue.generate();
  EXPECT_EQ(generator(), std::nullopt);
  queue.put("A", 5);
  queue.put("B", 3);
  queue.put("C", 5);
  EXPECT_EQ(generator(), "B");
  queue.put("D", 1);
  EXPECT_EQ(generator(), "D");
  EXPECT_EQ(generator(), "C");
  EXPECT_EQ(queue.collection(), (Pairs{{"A", 5}}));
  EXPECT_EQ(generator(), "A");
  EXPECT_EQ(generator(), std::nullopt);
}

struct Stream {
  int elements;
  int priorities;
  double shareOfTakes;
  int steps = 300;
};

TEST(PriorityQueue, FollowsTheListOnRandomStreams) {
  const Stream streams[] = {
      {4, 3, 0.3},  {10, 5, 0.4},        {40, 6, 0.2},           {40, 1000, 0.45},
      {3, 50, 0.1}, {400, 4, 0.1, 1000}, {400, 1000, 0.3, 1000}, {1000, 30, 0.02, 1000}};
  std::mt19937 random(7);
  for (const Stream& stream : streams)
    for (int repetition = 0; repetition < 30; ++repetition) {
      PriorityQueue<int, double> queue;
      test::LiteralPriorityQueue<int, double> list;
      std::uniform_int_distribution<int> element(1, stream.elements);
      std::uniform_int_distribution<int> priority(-1, stream.priorities);
      std::bernoulli_distribution take(stream.shareOfTakes);
      for (int step = 0; step < stream.steps; ++step) {
        if (take(random)) {
          ASSERT_EQ(queue.next(), list.next());
        } else {
          const int chosen = element(random);
          const double itsPriority = priority(random);
          queue.put(chosen, itsPriority);
          list.put(chosen, itsPriority);
        }
        ASSERT_EQ(queue.collection(), list.collection());
        ASSERT_EQ(queue.size(), list.collection().size());
      }
    }
}

TEST(PriorityQueue, FollowsTheRecordedCases) {
  const auto folder = test::venuesFolder();
  if (!folder) GTEST_SKIP() << "the real venues are not available";
  const auto recorded = RawData::parse(test::contentsOf(*folder / "tie-grid" / "queue.json"));
  ASSERT_TRUE(recorded);
  const auto cases = (*recorded)["cases"].arrayValue();
  EXPECT_EQ(cases.size(), 300U);
  for (std::size_t number = 0; number < cases.size(); ++number) {
    PriorityQueue<std::string, double> queue;
    for (const RawData& step : cases[number].arrayValue()) {
      if (const auto element = step["put"].string())
        queue.put(*element, step["priority"].doubleForce());
      else
        EXPECT_EQ(queue.next(), step["take"].string()) << "case " << number;
      Pairs after;
      for (const RawData& element : step["after"].arrayValue()) {
        const auto pair = element.arrayValue();
        after.emplace_back(pair.at(0).stringForce(), pair.at(1).doubleForce());
      }
      ASSERT_EQ(queue.collection(), after) << "case " << number;
    }
  }
}

}  // namespace
}  // namespace orivanta
