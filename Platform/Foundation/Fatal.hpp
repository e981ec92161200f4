// The one way in which the library stops the program: a broken promise of the caller or of the
// data that the design does not allow to pass.
#pragma once

#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Prints "fatal error: " and `message` as one line on standard error and aborts the process.
[[noreturn]] ORIVANTA_API void fatalError(std::string_view message);

/// Stops with "unexpectedly found nil while unwrapping an Optional value".
[[noreturn]] ORIVANTA_API void fatalAbsence();

/// The value inside an optional or a shared handle whose absence is a programming error.
/// Returns a reference into `value`, which must outlive it.
template <class Optional>
decltype(auto) unwrap(Optional&& value) {
  if (!value) fatalAbsence();
  return *static_cast<Optional&&>(value);
}

}  // namespace orivanta::foundation
