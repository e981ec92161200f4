// Sorting of many kinds of elements. Where the compiler optimizes for size, all calls share one
// merge sort of indices, so that each adds little code.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace orivanta::foundation {

namespace detail {

/// Returns the indices less than `count` in the order of the elements; equal ones keep theirs.
/// `comesBefore` is called with `elements` and two indices. There must be less than 2^32 elements.
std::vector<std::uint32_t> stableOrder(std::size_t count, const void* elements,
                                       bool (*comesBefore)(const void*, std::uint32_t,
                                                           std::uint32_t));

template <class Iterator, class ComesBefore>
void smallStableSort(Iterator first, Iterator last, ComesBefore& comesBefore) {
  struct Elements {
    Iterator first;
    ComesBefore& comesBefore;
  };
  const Elements elements{first, comesBefore};
  std::vector<std::uint32_t> order =
      stableOrder(static_cast<std::size_t>(last - first), &elements,
                  [](const void* all, std::uint32_t left, std::uint32_t right) {
                    const auto& [begin, isBefore] = *static_cast<const Elements*>(all);
                    return static_cast<bool>(isBefore(begin[left], begin[right]));
                  });
  for (std::uint32_t begin = 0; begin < order.size(); ++begin) {
    if (order[begin] == begin) continue;
    // Along the cycle of places. The index of an element that is in its place is its own.
    auto kept = std::move(first[begin]);
    std::uint32_t place = begin;
    for (std::uint32_t next = order[place]; next != begin; next = order[place]) {
      first[place] = std::move(first[next]);
      order[place] = place;
      place = next;
    }
    first[place] = std::move(kept);
    order[place] = place;
  }
}

}  // namespace detail

/// Like `std::stable_sort`.
template <class Iterator, class ComesBefore = std::less<>>
void stableSort(Iterator first, Iterator last, ComesBefore comesBefore = {}) {
#ifdef __OPTIMIZE_SIZE__
  detail::smallStableSort(first, last, comesBefore);
#else
  std::stable_sort(first, last, comesBefore);
#endif
}

/// Like `std::sort`.
template <class Iterator, class ComesBefore = std::less<>>
void sort(Iterator first, Iterator last, ComesBefore comesBefore = {}) {
#ifdef __OPTIMIZE_SIZE__
  detail::smallStableSort(first, last, comesBefore);
#else
  std::sort(first, last, comesBefore);
#endif
}

}  // namespace orivanta::foundation
