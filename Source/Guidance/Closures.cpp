#include "Source/Guidance/Closures.hpp"

#include <algorithm>
#include <functional>
#include <utility>

namespace orivanta::guidance {

Closures::Closures(std::vector<std::string> identifiers) {
  if (identifiers.empty()) return;
  std::sort(identifiers.begin(), identifiers.end());
  identifiers.erase(std::unique(identifiers.begin(), identifiers.end()), identifiers.end());
  identifiers_ = std::make_shared<const std::vector<std::string>>(std::move(identifiers));
}

bool Closures::contains(std::string_view identifier) const {
  return identifiers_ &&
         std::binary_search(identifiers_->begin(), identifiers_->end(), identifier, std::less<>());
}

const std::vector<std::string>& Closures::identifiers() const {
  static const std::vector<std::string> none;
  return identifiers_ ? *identifiers_ : none;
}

bool operator==(const Closures& left, const Closures& right) {
  return left.identifiers_ == right.identifiers_ || left.identifiers() == right.identifiers();
}

}  // namespace orivanta::guidance
