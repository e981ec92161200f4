#include "Platform/Graphics/Transaction.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace orivanta::graphics {
namespace {

TEST(Transaction, NestsAndKeepsOtherThreadsOut) {
  std::atomic<int> threadsInside = 0;
  const auto enterOften = [&threadsInside] {
    for (int i = 0; i < 2'000; ++i) {
      const Transaction whole;
      EXPECT_EQ(++threadsInside, 1);
      { const Transaction part; }
      std::this_thread::yield();
      --threadsInside;
    }
  };
  std::thread other(enterOften);
  enterOften();
  other.join();
}

}  // namespace
}  // namespace orivanta::graphics
