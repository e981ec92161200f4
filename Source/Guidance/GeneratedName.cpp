#include "Source/Guidance/GeneratedName.hpp"

#include <algorithm>
#include <string_view>

#include "Source/Category.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::guidance {

namespace {

bool isNumbered(std::string_view name, std::string_view word) {
  if (word.empty() || !name.starts_with(word)) return false;
  name.remove_prefix(word.size());
  if (name.size() < 2 || name.front() != ' ') return false;
  name.remove_prefix(1);
  return std::all_of(name.begin(), name.end(),
                     [](char character) { return character >= '0' && character <= '9'; });
}

}  // namespace

bool hasGeneratedName(const Location& place) {
  if (place._data["nameGenerated"].bool_().value_or(false)) return true;
  if (!place.name || dynamic_cast<const Vortex*>(&place) == nullptr) return false;
  return std::any_of(place.categories.begin(), place.categories.end(), [&](const auto& category) {
    return category && category->name && isNumbered(*place.name, *category->name);
  });
}

}  // namespace orivanta::guidance
