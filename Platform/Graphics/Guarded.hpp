// Members that any thread may read and write, one operation at a time.
#pragma once

#include <concepts>
#include <utility>

#include "Platform/Graphics/Changes.hpp"
#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::graphics {

template <class Value>
Value read(const Value& field) {
  const Transaction transaction;
  return field;
}

/// Swaps the two values, so that the caller destroys the old one after the transaction has ended.
/// Counts as a change unless they are equal.
template <class Value>
void swapGuarded(Value& field, Value& value) {
  const Transaction transaction;
  if constexpr (std::equality_comparable<Value>) {
    if (field == value) return;
  }
  std::swap(field, value);
  noteChange();
}

}  // namespace orivanta::graphics
