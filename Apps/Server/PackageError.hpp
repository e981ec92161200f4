// The error of the functions that read venue packages.
#pragma once

#include <stdexcept>

namespace orivanta::server {

/// A package cannot be served. The message names the file and the reason.
class PackageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace orivanta::server
