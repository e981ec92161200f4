// Fields that every thread may read and write, one operation at a time.
#pragma once

#include <utility>

#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::graphics {

template <class Value>
Value read(const Value& field) {
  const Transaction transaction;
  return field;
}

/// Swaps the two values. The caller destroys the old one after the transaction has ended.
template <class Value>
void swapGuarded(Value& field, Value& value) {
  const Transaction transaction;
  std::swap(field, value);
}

}  // namespace orivanta::graphics
