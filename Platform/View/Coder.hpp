// An archive of numbers by name, from which views are made.
// Public header.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::view {

/// An archive of numbers by name, from which views are made.
class ORIVANTA_API Coder {
 public:
  Coder() = default;  ///< an empty archive

  /// Creates an archive of these numbers.
  explicit Coder(std::map<std::string, double, std::less<>> numbers);

  /// Returns the number, or nothing if the archive does not contain the key.
  std::optional<double> number(std::string_view key) const;

 private:
  std::map<std::string, double, std::less<>> numbers_;
};

}  // namespace orivanta::view
