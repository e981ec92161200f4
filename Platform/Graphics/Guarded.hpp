// Fields that every thread may read and write, one operation at a time.
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

/// Leaves the old value in `value`, so that it is destroyed after the transaction. Counts as a
/// change unless the two are equal.
template <class Value>
void assign(Value& field, Value& value) {
  const Transaction transaction;
  if constexpr (std::equality_comparable<Value>) {
    if (field == value) return;
  }
  std::swap(field, value);
  noteChange();
}

}  // namespace orivanta::graphics
