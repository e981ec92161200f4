#include "Source/UI/Display/Styled/FloorWork.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/AssumedScale.hpp"
#include "Source/UI/Display/Styled/FloorOutlines.hpp"
#include "Source/UI/Display/Styled/OutlineColors.hpp"

namespace orivanta {

namespace {

// For venues without a scale.
double estimatedUnitsPerMeter(std::span<const OutlinedShape> shapes) {
  std::vector<double> sides;
  for (const OutlinedShape& shape : shapes) {
    if (shape.role.surface != ShapeRole::Surface::place || !shape.geometry) continue;
    const graphics::Box& box = shape.geometry->boundingBox();
    const double side = std::sqrt(double{box.max.x - box.min.x} * (box.max.y - box.min.y));
    if (side > 0 && std::isfinite(side)) sides.push_back(side);
  }
  return assumedUnitsPerMeter(std::move(sides));
}

}  // namespace

// The outlines of one model.
class FloorWork::Outlining : public std::enable_shared_from_this<Outlining> {
 public:
  Outlining(std::weak_ptr<scene::Node> model, std::vector<OutlinedShape> shapes,
            std::optional<double> unitsPerMeter)
      : model_(std::move(model)), shapes_(std::move(shapes)), unitsPerMeter_(unitsPerMeter) {}

  bool hasRoles(std::span<const ShapeRole> roles) const {
    return std::equal(roles_.begin(), roles_.end(), roles.begin(), roles.end());
  }

  void start(std::span<const ShapeRole> roles) {
    roles_.assign(roles.begin(), roles.end());
    foundation::runInBackground([weak = weak_from_this()] {
      if (const auto self = weak.lock()) self->compute();
      foundation::mainQueue::async([weak] {
        if (const auto self = weak.lock()) self->show();
      });
    });
  }

  bool isShown() const { return isShown_; }

  void setLook(scene::RibbonLook look) {
    look_ = std::move(look);
    if (isShown_) change(outlines_, look_);
  }

  void finish() {
    compute();
    show();
  }

  void remove() {
    if (isShown_) change(nullptr, {});
  }

 private:
  // Any thread. Waits for a computation on another thread.
  void compute() {
    std::call_once(once_, [this] {
      outlines_ =
          makeOutlines(shapes_, unitsPerMeter_ ? *unitsPerMeter_ : estimatedUnitsPerMeter(shapes_));
      shapes_ = {};
    });
  }

  void show() {
    if (std::exchange(isShown_, true)) return;
    if (const auto model = model_.lock()) model->setRibbons(outlines_, look_);
  }

  // Another style may have replaced the outlines.
  void change(std::shared_ptr<const scene::Ribbons> outlines, scene::RibbonLook look) {
    const graphics::Transaction transaction;
    if (const auto model = model_.lock(); model && model->ribbons() == outlines_)
      model->setRibbons(std::move(outlines), std::move(look));
  }

  const std::weak_ptr<scene::Node> model_;
  std::vector<ShapeRole> roles_;
  scene::RibbonLook look_;
  bool isShown_ = false;
  std::once_flag once_;  // guards the following members
  std::vector<OutlinedShape> shapes_;
  const std::optional<double> unitsPerMeter_;
  std::shared_ptr<const scene::Ribbons> outlines_;
};

void FloorWork::set(const Map& map, const Venue& venue, std::span<const ShapeRole> roles,
                    const MapTheme& theme) {
  if (!map.mapObject) return;
  std::erase_if(floors_, [](const auto& entry) { return entry.first.expired(); });
  std::shared_ptr<Outlining>& outlining = floors_[map.mapObject];
  if (!outlining || !outlining->hasRoles(roles)) {
    if (outlining) outlining->remove();
    outlining = std::make_shared<Outlining>(map.mapObject, outlinedShapes(*map.mapObject, roles),
                                            guidance::unitsPerMeterOf(venue));
    outlining->start(roles);
  }
  outlining->setLook({outlineColors(theme)});
}

FloorWork::Outlining* FloorWork::find(const Map& map) const {
  if (!map.mapObject) return nullptr;
  const auto found = floors_.find(map.mapObject);
  return found == floors_.end() ? nullptr : found->second.get();
}

bool FloorWork::isReady(const Map& map) const {
  const Outlining* const outlining = find(map);
  return outlining == nullptr || outlining->isShown();
}

void FloorWork::finish(const Map& map) {
  if (Outlining* const outlining = find(map)) outlining->finish();
}

void FloorWork::clear() {
  for (const auto& [model, outlining] : floors_) outlining->remove();
  floors_.clear();
}

}  // namespace orivanta
