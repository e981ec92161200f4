// The error value that the ports use: a domain, a code within that domain and a description.
// Public header.
#pragma once

#include <string>

namespace orivanta::foundation {

/// An error: a domain, a code within that domain and a description.
struct Error {
  std::string domain;  ///< the reporting component, such as "curl"; empty for the library itself
  int code = 0;        ///< meaningful within the domain
  std::string description;  ///< human-readable; may be empty

  friend bool operator==(const Error&, const Error&) = default;
};

}  // namespace orivanta::foundation
