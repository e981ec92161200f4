// A limit on the memory that an operation uses across all of its threads.
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

/// Thrown if a budget has fewer bytes left than requested.
class ORIVANTA_API BudgetExceeded : public std::bad_alloc {
 public:
  /// `wasBefore`: see the function `wasBefore`.
  explicit BudgetExceeded(bool wasBefore) : wasBefore_(wasBefore) {}
  /// Returns a human-readable description.
  const char* what() const noexcept override;

  /// Returns true if other work had already exceeded the budget.
  bool wasBefore() const noexcept { return wasBefore_; }

 private:
  bool wasBefore_;
};

/// Counts bytes. It does not allocate memory. All functions may be called concurrently.
class ORIVANTA_API MemoryBudget {
 public:
  /// Creates a budget of `bytes` bytes.
  explicit MemoryBudget(std::size_t bytes) : bytes_(bytes) {}
  MemoryBudget(const MemoryBudget&) = delete;
  MemoryBudget& operator=(const MemoryBudget&) = delete;

  /// Takes bytes from the budget. Throws `BudgetExceeded` if fewer bytes are left. After that,
  /// every call throws, even if bytes are given back, so that the whole operation ends.
  void take(std::size_t bytes);
  /// Gives back bytes that were taken.
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

/// The bytes that one owner has taken from a budget. The destructor gives them back. Must not be
/// used by two threads at once.
class BudgetShare {
 public:
  /// Creates an empty share. If `budget` is null, nothing is counted.
  explicit BudgetShare(std::shared_ptr<MemoryBudget> budget = nullptr)
      : budget_(std::move(budget)) {}
  ~BudgetShare() { giveBack(taken_); }
  BudgetShare(const BudgetShare&) = delete;
  BudgetShare& operator=(const BudgetShare&) = delete;

  /// Takes bytes from the budget. Throws as `MemoryBudget::take` does; the share is then unchanged.
  void take(std::size_t bytes) {
    if (!budget_) return;
    budget_->take(bytes);
    taken_ += bytes;
  }

  /// Gives back some of the bytes of this share.
  void giveBack(std::size_t bytes) noexcept {
    if (!budget_) return;
    budget_->giveBack(bytes);
    taken_ -= bytes;
  }

  /// Takes as many bytes as the share needs to hold `bytes` bytes in total.
  void growTo(std::size_t bytes) {
    if (bytes > taken_) take(bytes - taken_);
  }

  /// Returns the budget, or null if nothing is counted.
  const std::shared_ptr<MemoryBudget>& budget() const { return budget_; }

 private:
  std::shared_ptr<MemoryBudget> budget_;
  std::size_t taken_ = 0;
};

/// The domain of the errors that `memoryError` returns. The codes follow.
constexpr const char* memoryErrorDomain = "memory";
constexpr int outOfMemory = 1;           ///< an allocation failed
constexpr int budgetExceeded = 2;        ///< this operation exceeded the budget
constexpr int budgetExceededBefore = 3;  ///< other work had already exceeded the budget

/// Returns the error of the domain "memory" for a failed allocation or an exceeded budget.
ORIVANTA_API Error memoryError(const std::exception& failure);

}  // namespace orivanta::foundation
