#include "Platform/Foundation/MainQueue.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "Tests/Support/Latch.hpp"

namespace orivanta::foundation {
namespace {

TEST(MainQueue, DrainsInOrderWhatWaitedWhenCalled) {
  std::string ran;
  mainQueue::async([&] {
    ran += 'a';
    mainQueue::async([&] { ran += 'c'; });
  });
  mainQueue::async([&] { ran += 'b'; });
  EXPECT_TRUE(mainQueue::drain());
  EXPECT_EQ(ran, "ab");
  EXPECT_TRUE(mainQueue::drain());
  EXPECT_EQ(ran, "abc");
  EXPECT_FALSE(mainQueue::drain());
}

TEST(MainQueue, ATaskMayDrainInTurn) {
  std::string ran;
  mainQueue::async([&] {
    mainQueue::async([&] { ran += 'c'; });
    mainQueue::drain();
    ran += 'a';
  });
  mainQueue::async([&] { ran += 'b'; });
  mainQueue::drain();
  EXPECT_EQ(ran, "bca");
}

TEST(MainQueue, WaitsForAnotherThreadAndWakesTheHost) {
  EXPECT_FALSE(mainQueue::wait(0.0));
  int woken = 0;
  bool ran = false;
  mainQueue::setWake([&] { ++woken; });
  std::thread other([&] { mainQueue::async([&] { ran = true; }); });
  EXPECT_TRUE(mainQueue::wait(static_cast<double>(test::patience.count())));
  other.join();
  mainQueue::setWake(nullptr);
  EXPECT_EQ(woken, 1);
  EXPECT_TRUE(mainQueue::drain());
  EXPECT_TRUE(ran);
  EXPECT_FALSE(mainQueue::wait(0.0));
}

}  // namespace
}  // namespace orivanta::foundation
