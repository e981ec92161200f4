// The error value that crosses the ports: who reports it, a number within that domain, a text.
// Public header.
#pragma once

#include <string>

namespace orivanta::foundation {

/// A failure: who reports it, a number within that domain, and a text.
struct Error {
  std::string domain;       ///< the reporting part, such as "curl"; empty for the library's own
  int code = 0;             ///< meaningful within the domain
  std::string description;  ///< for people; may be empty

  friend bool operator==(const Error&, const Error&) = default;
};

}  // namespace orivanta::foundation
