// A limit on the memory that one piece of work takes, however the work is spread over threads.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

class ORIVANTA_API BudgetExceeded : public std::bad_alloc {
 public:
  explicit BudgetExceeded(bool wasBefore) : wasBefore_(wasBefore) {}
  const char* what() const noexcept override;

  /// Whether the budget had been exceeded already, by somebody else.
  bool wasBefore() const noexcept { return wasBefore_; }

 private:
  bool wasBefore_;
};

/// Counts bytes; it allocates nothing itself. Any number of threads at once.
class ORIVANTA_API MemoryBudget {
 public:
  explicit MemoryBudget(std::size_t bytes) : bytes_(bytes) {}
  MemoryBudget(const MemoryBudget&) = delete;
  MemoryBudget& operator=(const MemoryBudget&) = delete;

  /// Throws `BudgetExceeded` if fewer bytes are left. After that every call throws, so that the
  /// whole work ends instead of going on with what somebody gives back.
  void take(std::size_t bytes);
  void giveBack(std::size_t bytes) noexcept { taken_ -= bytes; }

  bool isExceeded() const noexcept { return exceeded_; }
  std::size_t taken() const noexcept { return taken_; }

 private:
  const std::size_t bytes_;
  std::atomic<std::size_t> taken_ = 0;
  std::atomic<bool> exceeded_ = false;
};

/// What one holder has taken from a budget. The destructor gives it back. One thread at a time.
class BudgetShare {
 public:
  /// Without a budget nothing is counted.
  explicit BudgetShare(std::shared_ptr<MemoryBudget> budget = nullptr)
      : budget_(std::move(budget)) {}
  ~BudgetShare() { giveBack(taken_); }
  BudgetShare(const BudgetShare&) = delete;
  BudgetShare& operator=(const BudgetShare&) = delete;

  /// Throws like `MemoryBudget::take`; the share then stays as it is.
  void take(std::size_t bytes) {
    if (!budget_) return;
    budget_->take(bytes);
    taken_ += bytes;
  }

  void giveBack(std::size_t bytes) noexcept {
    if (!budget_) return;
    budget_->giveBack(bytes);
    taken_ -= bytes;
  }

  /// Takes what is missing to so many bytes.
  void growTo(std::size_t bytes) {
    if (bytes > taken_) take(bytes - taken_);
  }

  const std::shared_ptr<MemoryBudget>& budget() const { return budget_; }

 private:
  std::shared_ptr<MemoryBudget> budget_;
  std::size_t taken_ = 0;
};

constexpr const char* memoryErrorDomain = "memory";
constexpr int outOfMemory = 1;
constexpr int budgetExceeded = 2;
constexpr int budgetExceededBefore = 3;

/// The error of the domain "memory" for a failed allocation or an exceeded budget.
ORIVANTA_API Error memoryError(const std::exception& failure);

}  // namespace orivanta::foundation
