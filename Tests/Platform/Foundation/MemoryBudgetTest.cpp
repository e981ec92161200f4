#include "Platform/Foundation/MemoryBudget.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

#include "Platform/Foundation/ParallelFor.hpp"

namespace orivanta::foundation {
namespace {

TEST(MemoryBudget, EndsForGoodWhenItIsExceeded) {
  const auto budget = std::make_shared<MemoryBudget>(100);
  {
    BudgetShare share(budget);
    share.growTo(60);
    share.growTo(40);
    EXPECT_EQ(budget->taken(), 60U);
    share.giveBack(20);
    share.take(60);
    EXPECT_FALSE(budget->isExceeded());
    EXPECT_THROW(share.take(1), BudgetExceeded);
  }
  EXPECT_EQ(budget->taken(), 0U);
  EXPECT_TRUE(budget->isExceeded());
  EXPECT_THROW(budget->take(1), BudgetExceeded);
}

TEST(MemoryBudget, SharedAmongThreadsItNeverGivesMoreThanItHas) {
  MemoryBudget budget(1000);
  std::atomic<int> given = 0;
  const auto takeOne = [&](std::size_t) {
    budget.take(1);
    ++given;
  };
  EXPECT_THROW(parallelFor(5000, takeOne), BudgetExceeded);
  EXPECT_EQ(given, 1000);
  EXPECT_EQ(budget.taken(), 1000U);
}

}  // namespace
}  // namespace orivanta::foundation
