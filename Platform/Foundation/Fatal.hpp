// Stops the program after an error in the caller or the data from which it cannot continue.
#pragma once

#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Prints "fatal error: " and `message` as one line on standard error and aborts the process.
[[noreturn]] ORIVANTA_API void fatalError(std::string_view message);

/// Stops with "unexpectedly found nil while unwrapping an Optional value".
[[noreturn]] ORIVANTA_API void fatalAbsence();

/// Returns the value of an optional or a shared handle, and stops the program if there is none. The
/// result is a reference into `value`, which must outlive it.
template <class Optional>
decltype(auto) unwrap(Optional&& value) {
  if (!value) fatalAbsence();
  return *static_cast<Optional&&>(value);
}

}  // namespace orivanta::foundation
