#include "Source/UI/Display/Styled/FirstViewing.hpp"

#include <algorithm>
#include <vector>

#include "Source/Map.hpp"
#include "Source/UI/Floors/FloorFiles.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr Surroundings aroundWhole{0.06, 1};
constexpr Surroundings aroundCore{0, 1};

// The whole slab is shown with all areas if the median room keeps this size.
constexpr double readableRoom = 18;  // points

FirstViewInput inputOf(const Venue& venue, const KindWords& words) {
  return firstViewInput(venue,
                        [&](const Location& place) { return firstViewRole(words.kindOf(place)); });
}

// Keeps only some floors and their places.
FirstViewInput onlyFloors(const FirstViewInput& all, const std::vector<std::size_t>& kept) {
  FirstViewInput input;
  for (const std::size_t floor : kept) input.floors.push_back(all.floors[floor]);
  for (FirstViewPlace place : all.places) {
    const auto found = std::find(kept.begin(), kept.end(), place.floor);
    if (found == kept.end()) continue;
    place.floor = static_cast<std::size_t>(found - kept.begin());
    input.places.push_back(place);
  }
  return input;
}

std::vector<graphics::Vector3> groundCorners(const graphics::Rect& rect) {
  const auto left = static_cast<float>(rect.minX());
  const auto right = static_cast<float>(rect.maxX());
  const auto bottom = static_cast<float>(rect.minY());
  const auto top = static_cast<float>(rect.maxY());
  return {{left, bottom, 0}, {right, bottom, 0}, {right, top, 0}, {left, top, 0}};
}

graphics::Size freeView(const MapCamera& camera) {
  const graphics::Size size = camera.lens().size;
  const Insets& insets = camera.insets();
  return {size.width - insets.left - insets.right, size.height - insets.top - insets.bottom};
}

// Keeps tilt and turn.
CameraPose firstPose(const MapCamera& camera, const FirstViewInput& input, std::size_t floor) {
  const CameraPose now = camera.pose();
  const CameraPose whole = camera.fittingPose(now.tilt, now.turn);
  if (input.floors[floor].areas.size == graphics::Size()) return whole;
  const FirstRegion region =
      firstRegion(input.floors[floor], floor, input.places, freeView(camera), input.unitsPerMeter);
  const double roomPoints =
      medianRoom(floor, input.places) / (camera.lens().slopePerPoint() * whole.distance);
  if (region.isWhole && roomPoints >= readableRoom) return whole;
  return camera.framingPose(groundCorners(region.rect), region.isWhole ? aroundWhole : aroundCore,
                            now.tilt, now.turn);
}

}  // namespace

FirstViewRole firstViewRole(PlaceKind kind) {
  switch (kind) {
    case PlaceKind::entrance:
    case PlaceKind::exit:
    case PlaceKind::gate:
      return FirstViewRole::entrance;
    case PlaceKind::bus:
    case PlaceKind::taxi:
    case PlaceKind::parking:
    case PlaceKind::bicycle:
    case PlaceKind::sport:
      return FirstViewRole::background;
    default:
      return FirstViewRole::place;
  }
}

std::shared_ptr<Map> firstFloorOf(const Venue& venue, const KindWords& words) {
  if (!venue.maps || venue.maps->empty()) return nullptr;
  const auto& maps = *venue.maps;
  std::vector<std::size_t> kept;
  for (std::size_t i = 0; i < maps.size(); ++i)
    if (maps[i]->mapObject || !FloorFiles::of(*maps[i]).model.empty()) kept.push_back(i);
  if (kept.empty()) return maps.front();
  const FirstViewInput input = onlyFloors(inputOf(venue, words), kept);
  return maps[kept[*firstFloor(input.floors, input.places)]];
}

void showFirstRegion(const MapView& view, const KindWords& words, CameraMotion motion) {
  MapCamera& camera = view.camera();
  if (!camera.isReady() || !view.venue || !view.venue->maps) return;
  const auto& maps = *view.venue->maps;
  const auto floor = static_cast<std::size_t>(
      std::find(maps.begin(), maps.end(), view.currentMap()) - maps.begin());
  if (floor == maps.size()) return;
  const CameraPose pose = firstPose(camera, inputOf(*view.venue, words), floor);
  if (motion == CameraMotion::glide)
    camera.glideTo(pose);
  else
    camera.setPose(pose);
}

}  // namespace orivanta
