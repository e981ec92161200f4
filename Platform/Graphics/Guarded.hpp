// Members that any thread may read and write, one operation at a time.
#pragma once

#include <utility>

#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::graphics {

template <class Value>
Value read(const Value& field) {
  const Transaction transaction;
  return field;
}

/// Puts the old value into `value`, so that it is destroyed after the transaction has ended.
template <class Value>
void assign(Value& field, Value& value) {
  const Transaction transaction;
  std::swap(field, value);
}

}  // namespace orivanta::graphics
