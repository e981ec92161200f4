// What is wrong with a venue package.
#pragma once

#include <stdexcept>

namespace orivanta::server {

/// A package that cannot be served; the text names the file and the reason.
class PackageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace orivanta::server
