// How a map view keeps its markers in place and out of one another's way.
#include <typeinfo>
#include <unordered_map>
#include <vector>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using foundation::unwrap;
using graphics::Transaction;

namespace {

// What the decision asks of a marker again and again, looked up once.
struct Placed {
  explicit Placed(const std::shared_ptr<MapViewMarker>& from)
      : marker(from.get()),
        sprite(dynamic_cast<MapViewMarker2D*>(marker)),
        decidesByFrame(typeid(*marker) == typeid(MapViewMarker2D)),
        givesWay(marker->hideWhenCollide.value_or(false)) {
    if (decidesByFrame) frame = unwrap(sprite->node).frame();
  }

  bool collidesWith(const Placed& other) const {
    return decidesByFrame && other.decidesByFrame ? frame.intersects(other.frame)
                                                  : marker->collidesWithMarker(*other.marker);
  }

  MapViewMarker* marker;
  MapViewMarker2D* sprite;  // null for other kinds
  bool decidesByFrame;      // no kind of its own that may judge otherwise
  bool givesWay;
  graphics::Rect frame;
};

// For each entry the first one of the same marker, which may have been added more than once.
std::vector<std::size_t> firstEntries(const std::vector<Placed>& placed) {
  std::unordered_map<const MapViewMarker*, std::size_t> entries;
  std::vector<std::size_t> first;
  first.reserve(placed.size());
  for (std::size_t i = 0; i < placed.size(); ++i)
    first.push_back(entries.try_emplace(placed[i].marker, i).first->second);
  return first;
}

}  // namespace

std::vector<std::shared_ptr<MapViewMarker>> MapView::markers() const {
  return graphics::read(markers_);
}

void MapView::addMarker(const std::shared_ptr<MapViewMarker2D>& marker) {
  const Transaction transaction;
  unwrap(unwrap(marker).node).setPosition(findPosition2D(marker->position()));
  markers_.push_back(marker);
  showMarker(*marker);
}

void MapView::removeMarker(const std::shared_ptr<MapViewMarker2D>& marker) {
  if (!marker) return;
  const Transaction transaction;
  hideMarker(*marker);
  std::erase(markers_, std::static_pointer_cast<MapViewMarker>(marker));
}

void MapView::showMarker(MapViewMarker2D& marker) {
  sprite::SpriteNode& sprite = unwrap(marker.node);
  sprite.setPosition(findPosition2D(marker.position()));
  sprite.removeFromParent();
  overlay().addChild(marker.node);
}

void MapView::hideMarker(MapViewMarker2D& marker) { unwrap(marker.node).removeFromParent(); }

void MapView::showAllMarkers() {
  const Transaction transaction;
  for (const auto& marker : markers_)
    if (auto* sprite = dynamic_cast<MapViewMarker2D*>(marker.get())) showMarker(*sprite);
}

void MapView::hideAllMarkers() {
  const Transaction transaction;
  for (const auto& marker : markers_)
    if (auto* sprite = dynamic_cast<MapViewMarker2D*>(marker.get())) hideMarker(*sprite);
}

void MapView::updateMarkerPositions() {
  const Transaction transaction;
  if (markers_.empty()) return;
  const auto viewpoint = sceneView->viewpoint();
  if (!viewpoint) return;
  for (const auto& marker : markers_)
    if (auto* sprite = dynamic_cast<MapViewMarker2D*>(marker.get()))
      unwrap(sprite->node).setPosition(overlayPosition(viewpoint->project(sprite->position())));
}

void MapView::updateMarkerVisibility() {
  const Transaction transaction;
  const std::vector<Placed> placed(markers_.begin(), markers_.end());
  const std::vector<std::size_t> first = firstEntries(placed);
  std::vector<char> hidden(placed.size(), 0);  // by a marker's first entry
  for (std::size_t i = 0; i < placed.size(); ++i) {
    if (hidden[first[i]] != 0) continue;
    for (std::size_t j = i + 1; j < placed.size(); ++j) {
      if (!placed[i].collidesWith(placed[j])) continue;
      if (placed[i].givesWay) {
        hidden[first[i]] = 1;
        break;
      }
      if (placed[j].givesWay) hidden[first[j]] = 1;
    }
  }
  for (std::size_t i = 0; i < placed.size(); ++i) {
    MapViewMarker2D* const sprite = placed[i].sprite;
    if (sprite == nullptr) continue;
    if (hidden[first[i]] != 0)
      hideMarker(*sprite);
    else if (!unwrap(sprite->node).hasParent())
      showMarker(*sprite);
  }
}

}  // namespace orivanta
