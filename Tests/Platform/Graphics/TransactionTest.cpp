#include "Platform/Graphics/Transaction.hpp"

#include <gtest/gtest.h>

#include <thread>

#include "Tests/Support/Latch.hpp"

namespace orivanta::graphics {
namespace {

TEST(Transaction, NestsAndKeepsOtherThreadsOut) {
  int changes = 0;  // in halves: even outside of a transaction
  const auto change = [&changes] {
    for (int i = 0; i < 100'000; ++i) {
      const Transaction whole;
      ASSERT_EQ(changes % 2, 0);
      ++changes;
      const Transaction part;
      ++changes;
    }
  };
  test::Latch started;
  std::thread other([&] {
    started.open();
    change();
  });
  EXPECT_TRUE(started.wait());
  change();
  other.join();
  EXPECT_EQ(changes, 400'000);
}

}  // namespace
}  // namespace orivanta::graphics
