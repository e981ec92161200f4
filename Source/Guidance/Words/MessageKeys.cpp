#include "Source/Guidance/Words/MessageKeys.hpp"

#include "Source/Category.hpp"
#include "Source/Guidance/KindWords.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Location.hpp"

namespace orivanta::guidance {

std::string placeName(const Messages& messages, const std::shared_ptr<Location>& place,
                      const std::shared_ptr<Category>& category) {
  if (!category && (!place || hasGeneratedName(*place))) return {};
  if (!category) return messages.name(place->name.value_or(""));
  const std::string name = messages.name(category->name.value_or(""));
  return name.empty() ? name : messages.format("category", {{"name", name}});
}

std::string sideKey(Side side) { return side == Side::none ? std::string() : "." + wordOf(side); }

}  // namespace orivanta::guidance
