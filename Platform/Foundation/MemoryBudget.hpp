// A limit on the memory that one piece of work takes, however the work is spread over threads.
// Public header.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Thrown when a budget has fewer bytes left than are needed.
class ORIVANTA_API BudgetExceeded : public std::bad_alloc {
 public:
  /// `wasBefore`: see the property of that name.
  explicit BudgetExceeded(bool wasBefore) : wasBefore_(wasBefore) {}
  /// A text for people.
  const char* what() const noexcept override;

  /// Whether the budget had been exceeded already, by somebody else.
  bool wasBefore() const noexcept { return wasBefore_; }

 private:
  bool wasBefore_;
};

/// Counts bytes; it allocates nothing itself. Any number of threads at once.
class ORIVANTA_API MemoryBudget {
 public:
  /// A budget of so many bytes.
  explicit MemoryBudget(std::size_t bytes) : bytes_(bytes) {}
  MemoryBudget(const MemoryBudget&) = delete;
  MemoryBudget& operator=(const MemoryBudget&) = delete;

  /// Throws `BudgetExceeded` if fewer bytes are left. After that every call throws, so that the
  /// whole work ends instead of going on with what somebody gives back.
  void take(std::size_t bytes);
  /// Returns bytes that were taken.
  void giveBack(std::size_t bytes) noexcept { taken_ -= bytes; }

  /// Whether `take` has thrown.
  bool isExceeded() const noexcept { return exceeded_; }

  /// The bytes taken and not yet given back.
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

  /// Returns some of the bytes that this share has taken.
  void giveBack(std::size_t bytes) noexcept {
    if (!budget_) return;
    budget_->giveBack(bytes);
    taken_ -= bytes;
  }

  /// Takes what is missing to so many bytes.
  void growTo(std::size_t bytes) {
    if (bytes > taken_) take(bytes - taken_);
  }

  /// Null if nothing is counted.
  const std::shared_ptr<MemoryBudget>& budget() const { return budget_; }

 private:
  std::shared_ptr<MemoryBudget> budget_;
  std::size_t taken_ = 0;
};

/// The domain of the errors that `memoryError` makes, and their codes.
constexpr const char* memoryErrorDomain = "memory";
constexpr int outOfMemory = 1;           ///< an allocation failed
constexpr int budgetExceeded = 2;        ///< this work exceeded the budget
constexpr int budgetExceededBefore = 3;  ///< other work had exceeded it before

/// The error of the domain "memory" for a failed allocation or an exceeded budget.
ORIVANTA_API Error memoryError(const std::exception& failure);

}  // namespace orivanta::foundation
