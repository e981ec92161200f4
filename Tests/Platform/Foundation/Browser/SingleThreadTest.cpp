// Background work, queues and waiting in a program with one thread.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/Browser/TurnTimer.hpp"
#include "Platform/Foundation/Browser/Turns.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/ParallelFor.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Foundation/Waiting.hpp"

namespace orivanta::foundation {

namespace {

int turnsAsked = 0;

}  // namespace

void requestTurnByTimer() { ++turnsAsked; }

namespace {

// Runs the turns that were asked for. Returns their number.
int runTurns() {
  int turns = 0;
  for (; turnsAsked > 0; ++turns) {
    --turnsAsked;
    runTurn();
  }
  return turns;
}

TEST(SingleThread, QueuesRunTheirTasksInOrderAndInLaterTurns) {
  std::string ran;
  const auto queue = SerialQueue::make();
  const auto other = SerialQueue::make();
  queue->async([&] {
    ran += 'a';
    queue->async([&] { ran += 'e'; });
    queue->suspend();
    while (!isTurnOver()) {
    }
  });
  queue->async([&] {
    ran += 'c';
    while (!isTurnOver()) {
    }
  });
  queue->async([&] { ran += 'd'; });
  other->async([&] {
    ran += 'b';
    queue->resume();
  });
  EXPECT_EQ(ran, "");
  EXPECT_EQ(runTurns(), 3) << "a queue does not hold up the page beyond its turn";
  EXPECT_EQ(ran, "abcde");
}

TEST(SingleThread, TheHostDecidesHowTurnsAreAskedFor) {
  int asked = 0;
  int ran = 0;
  setTurnRequest([&] { ++asked; });
  runInBackground([&] { ++ran; });
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(turnsAsked, 0);
  runTurn();
  setTurnRequest(nullptr);
  runInBackground([&] { ++ran; });
  EXPECT_EQ(runTurns(), 1);
  EXPECT_EQ(ran, 2);
}

TEST(SingleThread, ALoopEndsWithTheFirstException) {
  std::string ran;
  const auto body = [&](std::size_t number) {
    ran += std::to_string(number);
    if (number == 2) throw std::runtime_error("two");
  };
  parallelFor(2, body, 100);
  EXPECT_THROW(parallelFor(4, body), std::runtime_error);
  EXPECT_EQ(ran, "01012");
}

TEST(SingleThread, AWaitThatWouldNeverEndStopsTheProgram) {
  EXPECT_FALSE(mainQueue::wait(0));
  EXPECT_DEATH_IF_SUPPORTED(mainQueue::wait(0.001), "must not wait");
  mainQueue::async([] {});
  EXPECT_TRUE(mainQueue::wait(1));
  EXPECT_TRUE(mainQueue::drain());
  std::mutex mutex;
  std::condition_variable changed;
  std::unique_lock lock(mutex);
  waitUntil(changed, lock, [] { return true; });
  EXPECT_DEATH_IF_SUPPORTED(waitUntil(changed, lock, [] { return false; }), "forever");
}

}  // namespace
}  // namespace orivanta::foundation
