#include "Source/UI/Display/Styled/MapTaps.hpp"

#include <algorithm>

#include "Platform/Scene/Node.hpp"
#include "Source/Location.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/Styled/ConnectorShapes.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

constexpr double reach = 16;  // points

HitPlace label(const MapView& view, std::shared_ptr<Location> place) {
  const auto& polygons = place->polygons;
  const auto found = std::find_if(polygons.begin(), polygons.end(), [&](const auto& polygon) {
    return polygon->map == view.currentMap();
  });
  const auto shown = found == polygons.end() ? nullptr : *found;
  return {std::move(place), shown, true, nullptr};
}

std::shared_ptr<Location> placeOfShape(const Venue& venue, const std::string& name) {
  if (venue.polygonDictionary)
    if (const auto entry = venue.polygonDictionary->find(name);
        entry != venue.polygonDictionary->end() && !entry->second->locations.empty())
      return entry->second->locations.front().lock();
  const ConnectorShapes connectors = connectorShapes(venue);
  const auto connector = connectors.find(name);
  return connector == connectors.end() ? nullptr : connector->second;
}

}  // namespace

HitPlace hitPlace(const MapView& view, const StyledMap& style, graphics::Point point) {
  if (auto mark = style.route().markAt(point)) {
    if (mark->leadsTo) return {std::move(mark->place), nullptr, true, std::move(mark->leadsTo)};
    if (mark->place) return label(view, std::move(mark->place));
  }
  const LabelView& labels = *style.labels().view();
  if (auto place = labels.labelAt(point)) return label(view, std::move(place));
  const auto hits = view.sceneView->hits(point);
  if (!hits.empty() && view.venue)
    if (auto place = placeOfShape(*view.venue, hits.front().node->name().value_or("")))
      return {std::move(place), nullptr, false, nullptr};
  if (auto place = labels.symbolNear(point, reach)) return label(view, std::move(place));
  return {};
}

}  // namespace orivanta
