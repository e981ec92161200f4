#include "Apps/Viewer/Content/ShownName.hpp"

#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/Location.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

std::string shownName(const Venue& venue, const Location& place) {
  std::string name = labelName(venue, place);
  if (!name.empty()) return name;
  const auto floors = floorsOf(place);
  return floors.empty() ? "" : floorName(*floors.front());
}

std::string connectorName(const Vortex& connector, const guidance::InterfaceTexts& texts) {
  using guidance::ConnectorKind;
  switch (guidance::connectorKindOf(connector.type.value_or(""))) {
    case ConnectorKind::lift:
      return texts.text("interface.connector.lift");
    case ConnectorKind::escalator:
      return texts.text("interface.connector.escalator");
    case ConnectorKind::stairs:
      return texts.text("interface.connector.stairs");
    case ConnectorKind::ramp:
      return texts.text("interface.connector.ramp");
    case ConnectorKind::other:
      break;
  }
  return texts.text("interface.connector.other");
}

std::string listedName(const Venue& venue, const Location& place,
                       const guidance::InterfaceTexts& texts) {
  const auto* const connector = dynamic_cast<const Vortex*>(&place);
  if (connector == nullptr) return foundation::label(place.name.value_or(""));
  const std::string sign = foundation::label(labelName(venue, place));
  return sign.empty() ? connectorName(*connector, texts) : sign;
}

}  // namespace orivanta::viewer
