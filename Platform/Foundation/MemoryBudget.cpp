#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta::foundation {

const char* BudgetExceeded::what() const noexcept { return "the memory budget is exceeded"; }

void MemoryBudget::take(std::size_t bytes) {
  std::size_t taken = taken_;
  do {
    if (exceeded_ || bytes > bytes_ - taken) throw BudgetExceeded(exceeded_.exchange(true));
  } while (!taken_.compare_exchange_weak(taken, taken + bytes));
}

Error memoryError(const std::exception& failure) {
  if (const auto* exceeded = dynamic_cast<const BudgetExceeded*>(&failure))
    return {memoryErrorDomain, exceeded->wasBefore() ? budgetExceededBefore : budgetExceeded,
            "the memory limit of the load was exceeded"};
  return {memoryErrorDomain, outOfMemory, "not enough memory for the response"};
}

}  // namespace orivanta::foundation
