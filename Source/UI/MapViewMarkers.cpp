// How a map view keeps its markers in place and out of one another's way.
#include <algorithm>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using foundation::unwrap;
using graphics::Transaction;

std::vector<std::shared_ptr<MapViewMarker>> MapView::markers() const {
  const Transaction transaction;
  return markers_;
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
  std::vector<char> hidden(markers_.size(), 0);
  for (std::size_t i = 0; i + 1 < markers_.size(); ++i) {
    const MapViewMarker& earlier = *markers_[i];
    for (std::size_t j = i + 1; j < markers_.size() && hidden[i] == 0; ++j) {
      const MapViewMarker& later = *markers_[j];
      if (!earlier.collidesWithMarker(later)) continue;
      if (earlier.hideWhenCollide.value_or(false))
        hidden[i] = 1;
      else if (later.hideWhenCollide.value_or(false))
        hidden[j] = 1;
    }
  }
  for (std::size_t i = 0; i < markers_.size(); ++i) {
    auto* sprite = dynamic_cast<MapViewMarker2D*>(markers_[i].get());
    if (sprite == nullptr) continue;
    if (hidden[i] != 0)
      hideMarker(*sprite);
    else if (!unwrap(sprite->node).hasParent())
      showMarker(*sprite);
  }
}

}  // namespace orivanta
