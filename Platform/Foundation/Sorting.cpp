#include "Platform/Foundation/Sorting.hpp"

#include <numeric>

namespace orivanta::foundation::detail {

std::vector<std::uint32_t> stableOrder(std::size_t count, const void* elements,
                                       bool (*comesBefore)(const void*, std::uint32_t,
                                                           std::uint32_t)) {
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0U);
  std::vector<std::uint32_t> merged(count);
  for (std::size_t run = 1; run < count; run *= 2) {
    for (std::size_t begin = 0; begin < count; begin += 2 * run) {
      const std::size_t middle = std::min(begin + run, count);
      const std::size_t end = std::min(middle + run, count);
      std::size_t left = begin;
      std::size_t right = middle;
      for (std::size_t i = begin; i < end; ++i) {
        const bool isRight =
            left == middle || (right < end && comesBefore(elements, order[right], order[left]));
        merged[i] = order[isRight ? right++ : left++];
      }
    }
    order.swap(merged);
  }
  return order;
}

}  // namespace orivanta::foundation::detail
