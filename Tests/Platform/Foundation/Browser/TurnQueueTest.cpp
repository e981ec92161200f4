#include "Platform/Foundation/Browser/TurnQueue.hpp"

#include <gtest/gtest.h>

#include <string>

namespace orivanta::foundation {
namespace {

TEST(TurnQueue, RunsTasksInOrderUntilTheTurnIsOverAndAsksForTheNextTurnOnce) {
  int asked = 0;
  std::string ran;
  TurnQueue::Clock::time_point now;
  TurnQueue queue([&] { ++asked; }, [&] { return now; });
  const auto task = [&](char name) {
    return [&, name] {
      ran += name;
      now += std::chrono::milliseconds(3);
    };
  };
  for (const char name : {'a', 'b', 'c'}) queue.add(task(name));
  queue.add([&] {
    task('d')();
    queue.add(task('e'));
    queue.runTurn();  // does nothing
    EXPECT_FALSE(queue.isTurnOver());
  });
  EXPECT_EQ(ran, "") << "a task never runs inside the call that adds it";
  EXPECT_EQ(asked, 1);
  queue.runTurn();
  EXPECT_EQ(ran, "abc");
  EXPECT_EQ(asked, 2);
  queue.runTurn();
  EXPECT_EQ(ran, "abcde");
  EXPECT_EQ(asked, 2) << "no task is left";
  now += TurnQueue::turnLength;
  EXPECT_FALSE(queue.isTurnOver()) << "no turn is running";
  queue.add(task('f'));
  EXPECT_EQ(asked, 3);
  queue.runTurn();
  queue.runTurn();
  EXPECT_EQ(ran, "abcdef");
  EXPECT_EQ(asked, 3);
}

}  // namespace
}  // namespace orivanta::foundation
