#include "Source/UI/Parts/MarkerLayer.hpp"

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

// The data of a marker for collision detection, cached.
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
  MapViewMarker2D* sprite;  // null for other classes
  bool decidesByFrame;      // not a subclass, which may override the decision
  bool givesWay;
  graphics::Rect frame;
};

// Returns for each entry the first entry of the same marker, which may have been added repeatedly.
std::vector<std::size_t> firstEntries(const std::vector<Placed>& placed) {
  std::unordered_map<const MapViewMarker*, std::size_t> entries;
  std::vector<std::size_t> first;
  first.reserve(placed.size());
  for (std::size_t i = 0; i < placed.size(); ++i)
    first.push_back(entries.try_emplace(placed[i].marker, i).first->second);
  return first;
}

}  // namespace

graphics::Point overlayPosition(const MapView& view, graphics::Vector3 projected) {
  const graphics::Size shown = view.sceneView->frame().size;
  const graphics::Size overlaid = view.overlay().frame().size;
  return {projected.x / shown.width * overlaid.width,
          (1 - projected.y / shown.height) * overlaid.height};
}

std::vector<std::shared_ptr<MapViewMarker>> MarkerLayer::markers() const {
  return graphics::read(markers_);
}

void MarkerLayer::add(const std::shared_ptr<MapViewMarker2D>& marker) {
  const Transaction transaction;
  unwrap(unwrap(marker).node).setPosition(view_.findPosition2D(marker->position()));
  markers_.push_back(marker);
  show(*marker);
}

void MarkerLayer::remove(const std::shared_ptr<MapViewMarker2D>& marker) {
  if (!marker) return;
  const Transaction transaction;
  hide(*marker);
  std::erase(markers_, std::static_pointer_cast<MapViewMarker>(marker));
}

void MarkerLayer::show(MapViewMarker2D& marker) {
  sprite::SpriteNode& sprite = unwrap(marker.node);
  sprite.setPosition(view_.findPosition2D(marker.position()));
  sprite.removeFromParent();
  view_.overlay().addChild(marker.node);
}

void MarkerLayer::hide(MapViewMarker2D& marker) { unwrap(marker.node).removeFromParent(); }

void MarkerLayer::moveTo(MapViewOverlay2D& overlay) {
  const Transaction transaction;
  for (const auto& marker : markers_) {
    const auto* sprite = dynamic_cast<const MapViewMarker2D*>(marker.get());
    if (sprite == nullptr || !unwrap(sprite->node).hasParent()) continue;
    sprite->node->removeFromParent();
    overlay.addChild(sprite->node);
  }
}

void MarkerLayer::showAll() {
  const Transaction transaction;
  for (const auto& marker : markers_)
    if (auto* sprite = dynamic_cast<MapViewMarker2D*>(marker.get())) show(*sprite);
}

void MarkerLayer::hideAll() {
  const Transaction transaction;
  for (const auto& marker : markers_)
    if (auto* sprite = dynamic_cast<MapViewMarker2D*>(marker.get())) hide(*sprite);
}

void MarkerLayer::updatePositions() {
  const Transaction transaction;
  if (markers_.empty()) return;
  const auto viewpoint = view_.sceneView->viewpoint();
  if (!viewpoint) return;
  for (const auto& marker : markers_)
    if (auto* sprite = dynamic_cast<MapViewMarker2D*>(marker.get()))
      unwrap(sprite->node)
          .setPosition(overlayPosition(view_, viewpoint->project(sprite->position())));
}

void MarkerLayer::updateVisibility() {
  const Transaction transaction;
  const std::vector<Placed> placed(markers_.begin(), markers_.end());
  const std::vector<std::size_t> first = firstEntries(placed);
  std::vector<char> hidden(placed.size(), 0);  // indexed by a marker's first entry
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
      hide(*sprite);
    else if (!unwrap(sprite->node).hasParent())
      show(*sprite);
  }
}

}  // namespace orivanta
