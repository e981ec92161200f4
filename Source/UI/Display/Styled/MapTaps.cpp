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

HitPlace label(const std::shared_ptr<Map>& floor, std::shared_ptr<Location> place) {
  const auto& polygons = place->polygons;
  const auto found = std::find_if(polygons.begin(), polygons.end(),
                                  [&](const auto& polygon) { return polygon->map == floor; });
  const auto shown = found == polygons.end() ? nullptr : *found;
  return {std::move(place), shown, true};
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

HitPlace hitInStack(const MapView& view, const FloorStack& stack, const LabelView& labels,
                    graphics::Point point) {
  if (auto floor = stack.view()->nameAt(point)) return {nullptr, nullptr, true, std::move(floor)};
  if (auto mark = stack.view()->markAt(point)) {
    if (mark->leadsTo) return {std::move(mark->place), nullptr, true, std::move(mark->leadsTo)};
    if (mark->place) {
      HitPlace hit = label(mark->at.floor, std::move(mark->place));
      hit.floor = mark->at.floor;
      return hit;
    }
  }
  HitPlace hit;
  hit.place = labels.labelAt(point);
  const auto hits = view.sceneView->hits(point);
  if (hits.empty()) return hit;
  hit.floor = stack.floorOf(*hits.front().node);
  if (view.venue && !hit.place)
    hit.place = placeOfShape(*view.venue, hits.front().node->name().value_or(""));
  return hit;
}

}  // namespace

HitPlace hitPlace(const MapView& view, const StyledMap& style, graphics::Point point) {
  const LabelView& labels = *style.labels().view();
  if (style.stack().isOn()) return hitInStack(view, style.stack(), labels, point);
  if (auto mark = style.route().markAt(point)) {
    if (mark->leadsTo) return {std::move(mark->place), nullptr, true, std::move(mark->leadsTo)};
    if (mark->place) return label(view.currentMap(), std::move(mark->place));
  }
  if (auto place = labels.labelAt(point)) return label(view.currentMap(), std::move(place));
  const auto hits = view.sceneView->hits(point);
  if (!hits.empty() && view.venue)
    if (auto place = placeOfShape(*view.venue, hits.front().node->name().value_or("")))
      return {std::move(place), nullptr, false};
  if (auto place = labels.symbolNear(point, reach))
    return label(view.currentMap(), std::move(place));
  return {};
}

}  // namespace orivanta
