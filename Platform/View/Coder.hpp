// An archive of numbers by name, from which views are made.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::view {

class ORIVANTA_API Coder {
 public:
  Coder() = default;
  explicit Coder(std::map<std::string, double, std::less<>> numbers);

  /// Nothing when the archive has no such number.
  std::optional<double> number(std::string_view key) const;

 private:
  std::map<std::string, double, std::less<>> numbers_;
};

}  // namespace orivanta::view
