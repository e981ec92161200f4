#include "Source/Guidance/Words/MessageKeys.hpp"

#include "Source/Guidance/KindWords.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Location.hpp"

namespace orivanta::guidance {

std::string spokenName(const Location* place) {
  if (place == nullptr || hasGeneratedName(*place)) return {};
  return place->name.value_or("");
}

std::string sideKey(Side side) { return side == Side::none ? std::string() : "." + wordOf(side); }

}  // namespace orivanta::guidance
