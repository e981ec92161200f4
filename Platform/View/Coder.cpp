#include "Platform/View/Coder.hpp"

#include <utility>

namespace orivanta::view {

Coder::Coder(std::map<std::string, double, std::less<>> numbers) : numbers_(std::move(numbers)) {}

std::optional<double> Coder::number(std::string_view key) const {
  const auto found = numbers_.find(key);
  if (found == numbers_.end()) return std::nullopt;
  return found->second;
}

}  // namespace orivanta::view
