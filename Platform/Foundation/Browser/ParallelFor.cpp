#include "Platform/Foundation/ParallelFor.hpp"

namespace orivanta::foundation {

void parallelFor(std::size_t count, const std::function<void(std::size_t)>& body,
                 std::size_t /*inARow*/) {
  for (std::size_t number = 0; number < count; ++number) body(number);
}

}  // namespace orivanta::foundation
