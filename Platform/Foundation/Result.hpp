// The result of an operation that may fail: a value or an error.
//
//   Result<FileBytes> bytes = readBytes(file, limit);
//   if (!bytes) return failure(bytes.error());
//   use(bytes->text());
// Public header.
#pragma once

#include <string>
#include <tl/expected.hpp>
#include <utility>

#include "Platform/Foundation/Error.hpp"

namespace orivanta::foundation {

/// A value or an error. `Result<void>` has no value and converts to true on success.
template <class T>
using Result = tl::expected<T, Error>;

/// Returns a failed result, which converts to a `Result` of any type.
inline tl::unexpected<Error> failure(Error error) {
  return tl::unexpected<Error>(std::move(error));
}

/// As above, from the fields of the error.
inline tl::unexpected<Error> failure(std::string domain, int code, std::string description) {
  return failure(Error{std::move(domain), code, std::move(description)});
}

}  // namespace orivanta::foundation
