#include "Source/UI/Display/Styled/ConnectorShapes.hpp"

#include "Source/RawData.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

ConnectorShapes connectorShapes(const Venue& venue) {
  ConnectorShapes shapes;
  if (!venue.vortices) return shapes;
  for (const auto& vortex : *venue.vortices)
    for (const RawData& polygon : vortex->_data["polygons"].arrayValue())
      if (const auto id = polygon["id"].string()) shapes.emplace(*id, vortex);
  return shapes;
}

}  // namespace orivanta
