#include "Platform/Foundation/SerialQueue.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "Tests/Support/Awaited.hpp"

namespace orivanta::foundation {
namespace {

using test::Latch;

// Adds a task and waits for it, so that all earlier tasks have run.
void drain(SerialQueue& queue) {
  const auto reached = std::make_shared<Latch>();
  queue.async([reached] { reached->open(); });
  ASSERT_TRUE(reached->wait());
}

TEST(SerialQueue, RunsTheTasksOfEachProducerInOrderAndNeverTwoAtOnce) {
  constexpr int taskCount = 2000;
  const auto queue = SerialQueue::make();
  // Unsynchronized memory: the queue alone must keep the tasks from running concurrently.
  std::vector<int> ran[4];
  int total = 0;
  std::vector<std::thread> producers;
  for (auto& own : ran)
    producers.emplace_back([&] {
      for (int i = 0; i < taskCount; ++i)
        queue->async([&own, &total, i] {
          own.push_back(i);
          ++total;
        });
    });
  for (auto& producer : producers) producer.join();
  drain(*queue);
  EXPECT_EQ(total, 4 * taskCount);
  for (const auto& own : ran) {
    ASSERT_EQ(own.size(), std::size_t{taskCount});
    EXPECT_TRUE(std::is_sorted(own.begin(), own.end()));
  }
}

TEST(SerialQueue, ATaskAddedByATaskComesBehindThoseWaiting) {
  const auto queue = SerialQueue::make();
  std::vector<int> order;
  queue->suspend();
  queue->async([&] {
    order.push_back(1);
    queue->async([&] { order.push_back(3); });
  });
  queue->async([&] { order.push_back(2); });
  queue->resume();
  drain(*queue);
  drain(*queue);
  EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(SerialQueue, SuspensionsNestAndHoldBackWhatHasNotStarted) {
  const auto queue = SerialQueue::make();
  std::vector<int> order;
  const auto suspended = std::make_shared<Latch>();
  queue->async([&, suspended] {
    queue->suspend();
    queue->suspend();
    order.push_back(1);
    suspended->open();
  });
  queue->async([&] { order.push_back(2); });
  ASSERT_TRUE(suspended->wait());
  queue->resume();
  // If the second task were not suspended, it could run here.
  drain(*SerialQueue::make());
  queue->suspend();
  queue->resume();
  EXPECT_EQ(order, (std::vector{1}));
  queue->resume();
  drain(*queue);
  EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST(SerialQueue, ASuspendedQueueThatNobodyRefersToDropsItsTasksUnrun) {
  const auto released = std::make_shared<Latch>();
  bool ran = false;
  auto queue = SerialQueue::make();
  queue->suspend();
  queue->async([&ran, token = test::opensWhenGone(released)] { ran = true; });
  EXPECT_FALSE(released->isOpen());
  queue.reset();
  EXPECT_TRUE(released->isOpen());
  EXPECT_FALSE(ran);
}

TEST(SerialQueue, WhatATaskHoldsGoesBeforeTheNextOneStarts) {
  const auto queue = SerialQueue::make();
  const auto released = std::make_shared<Latch>();
  queue->async([token = test::opensWhenGone(released)] {});
  bool wasReleased = false;
  queue->async([&, released] { wasReleased = released->isOpen(); });
  drain(*queue);
  EXPECT_TRUE(wasReleased);
}

}  // namespace
}  // namespace orivanta::foundation
