#include "Source/Guidance/Words/MessageKeys.hpp"

#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Location.hpp"

namespace orivanta::guidance {

std::string spokenName(const Location* place) {
  if (place == nullptr || hasGeneratedName(*place)) return {};
  return place->name.value_or("");
}

std::string keyOf(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::lift:
      return "lift";
    case ConnectorKind::escalator:
      return "escalator";
    case ConnectorKind::stairs:
      return "stairs";
    case ConnectorKind::ramp:
      return "ramp";
    case ConnectorKind::other:
      break;
  }
  return "other";
}

std::string keyOf(Side side) {
  switch (side) {
    case Side::left:
      return ".left";
    case Side::right:
      return ".right";
    case Side::ahead:
      return ".ahead";
    case Side::behind:
      return ".behind";
    case Side::none:
      break;
  }
  return {};
}

}  // namespace orivanta::guidance
