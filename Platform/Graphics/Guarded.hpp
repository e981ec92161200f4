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

/// Leaves the old value in `value`, so that it goes when the transaction has ended.
template <class Value>
void assign(Value& field, Value& value) {
  const Transaction transaction;
  std::swap(field, value);
}

}  // namespace orivanta::graphics
