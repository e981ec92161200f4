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

  /// An archive of these numbers.
  explicit Coder(std::map<std::string, double, std::less<>> numbers);

  /// Nothing when the archive has no such number.
  std::optional<double> number(std::string_view key) const;

 private:
  std::map<std::string, double, std::less<>> numbers_;
};

}  // namespace orivanta::view
