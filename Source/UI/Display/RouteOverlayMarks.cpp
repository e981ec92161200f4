#include "Source/UI/Display/RouteOverlayMarks.hpp"

#include <tuple>
#include <utility>

#include "Platform/Graphics/Changes.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Source/UI/Display/RouteRibbons.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta {

namespace {

constexpr double backing = 3.5;  // points around the letters, which may be on the route

// Returns the mark of a floor change that starts at a node of the path; empty if there is none.
std::string rideText(const NodeList& path, std::size_t begin) {
  for (const FloorChange& change : floorChanges(path))
    if (change.begin == begin)
      return floorChangeMark(*path[change.begin]->map, *path[change.end]->map);
  return {};
}

}  // namespace

void RouteOverlay::drawSegments() {
  const graphics::Color ribbon = color.value_or(mapView_->pathColor);
  for (std::size_t i = first_; i + 1 < end_; ++i) {
    if (!isOnShownFloor(i) || !isOnShownFloor(i + 1)) continue;
    for (const auto& layer :
         makeRouteSegment(scenePosition(*path_[i]), scenePosition(*path_[i + 1]), ribbon)) {
      scene_->rootNode()->addChild(layer);
      segments_.push_back(layer);
    }
  }
}

// Adds at most one mark per node.
void RouteOverlay::addMarks() {
  for (std::size_t i = first_; i < end_; ++i) {
    if (!isOnShownFloor(i)) continue;
    const bool isEnd = i == 0 || i + 1 == path_.size();
    if (isEnd || !isOnShownFloor(i - 1) || !isOnShownFloor(i + 1) || !stopsAt(i).empty())
      addMark(i);
  }
}

void RouteOverlay::addMark(std::size_t index) {
  const bool isStart = index == 0;
  const bool isEnd = index + 1 == path_.size();
  MarkContent content{isEnd ? markColors::end : isStart ? markColors::start : markColors::ride};
  std::string text = isStart ? nameOf(from_, start) : isEnd ? nameOf(to_, destination) : "";
  if (!isStart && !isEnd && !stopsAt(index).empty()) {
    content.color = markColors::place;
    std::tie(content.number, text) = stopTexts(index);
  }
  const std::string ride =
      !isEnd && !isOnShownFloor(index + 1) ? rideText(path_, index) : std::string();
  if (!ride.empty()) text += (text.empty() ? "" : "  ") + ride;
  auto style = labelStyle();
  style.bold = true;
  style.outlineWidth = backing;
  style.outlineColor = graphics::colors::white;
  content.text = graphics::makeTextImage(text, style, scale_);
  marks_->list.push_back({scenePosition(*path_[index]), std::move(content), nullptr});
}

std::vector<std::vector<graphics::Point>> RouteOverlay::linesInView() const {
  std::vector<std::vector<graphics::Point>> lines;
  bool continues = false;
  for (std::size_t i = first_; i < end_; ++i) {
    const bool isHere = isOnShownFloor(i);
    if (isHere && !continues) lines.emplace_back();
    if (isHere)
      lines.back().push_back(mapView_->findPositionCameraViewport(scenePosition(*path_[i])));
    continues = isHere;
  }
  return lines;
}

void RouteOverlay::arrangeMarks() {
  std::vector<MarkPlace> places;
  for (const Mark& mark : marks_->list)
    places.push_back({mapView_->findPositionCameraViewport(mark.position),
                      mark.content.text ? mark.content.text->size() : graphics::Size{}});
  auto looks = placeMarks(places, linesInView(), mapView_->bounds(), marks_->looks);
  for (std::size_t i = 0; i < looks.size(); ++i) {
    Mark& mark = marks_->list[i];
    if (mark.marker && looks[i] == marks_->looks[i]) continue;
    mapView_->removeMarker(mark.marker);
    mark.marker = makeImageMarker(makeMarkImage(looks[i], mark.content, scale_));
    if (!mark.marker) continue;
    mark.marker->setPosition(mark.position);
    mapView_->addMarker(mark.marker);
  }
  marks_->looks = std::move(looks);
  arrangedChange_ = graphics::changeCount();
}

}  // namespace orivanta
