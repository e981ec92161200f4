#include "Platform/Foundation/Threads/GrowingPool.hpp"

#include <gtest/gtest.h>

#include <thread>

#include "Tests/Support/Awaited.hpp"

namespace orivanta::foundation {
namespace {

using test::Awaited;
using test::Latch;

TEST(GrowingPool, TasksThatBlockHoldUpNoOtherUpToTheLimit) {
  constexpr std::size_t mostThreads = 20;
  GrowingPool pool(mostThreads, std::chrono::milliseconds(0));
  Latch latch;
  std::vector<Awaited<bool>> begun(mostThreads);
  for (const auto& each : begun)
    pool.run([&latch, each] {
      each.give(true);
      EXPECT_TRUE(latch.wait());
    });
  for (const auto& each : begun) each.take();
  const Awaited<bool> beyond;
  pool.run([&latch, beyond] { beyond.give(latch.isOpen()); });
  EXPECT_EQ(pool.threadCount(), mostThreads);
  latch.open();
  EXPECT_TRUE(beyond.take()) << "waits for a thread that becomes free";
  while (pool.threadCount() > 0) std::this_thread::yield();  // idle threads end
}

}  // namespace
}  // namespace orivanta::foundation
