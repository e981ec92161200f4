#include "Source/UI/Display/Styled/FloorClone.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/FloorOutlines.hpp"
#include "Source/UI/Display/Styled/OutlineColors.hpp"

namespace orivanta {

namespace {

using Surface = ShapeRole::Surface;

std::shared_ptr<scene::Node> copyOf(const scene::Node& shape) {
  auto copy = scene::Node::make(shape.geometry());
  copy->setName(shape.name());
  copy->setPosition(shape.position());
  copy->setEulerAngles(shape.eulerAngles());
  copy->setDisplayColor(shape.displayColor());
  copy->setHidden(shape.isHidden());
  copy->setCastsShadow(false);
  return copy;
}

bool isConnector(const ShapeRole& role) {
  return role.surface == Surface::place && role.kind == FillKind::vertical;
}

}  // namespace

FloorClone::FloorClone(const Map& map, const Shapes& leftOut)
    : model_(map.mapObject), node_(scene::Node::make()), hasSlab_(leftOut.empty()) {
  const graphics::Transaction transaction;
  const scene::Node& model = *map.mapObject;
  node_->setPosition(model.position());
  node_->setEulerAngles(model.eulerAngles());
  for (const auto& shape : model.children(transaction)) {
    auto copy = copyOf(*shape);
    if (std::find(leftOut.begin(), leftOut.end(), shape) != leftOut.end()) copy->setHidden(true);
    node_->addChild(copy);
    shapes_.emplace_back(shape, std::move(copy));
  }
  if (const auto batch = model.preparedBatch(); batch && batch->matches(model))
    node_->setPreparedBatch(batch->adopted(*node_));
  copyRibbons(model);
}

scene::RibbonLook withSlabEdges(scene::RibbonLook look, bool areShown) {
  const auto edge = outlineIndex(outlineSurface::slab, outlineSurface::backdrop);
  if (edge < look.colors.size()) look.colors[edge].color.alpha = areShown ? 1.0F : 0.0F;
  return look;
}

// The edge of what is left of a floor, on the floors behind it or on the background.
scene::RibbonLook FloorClone::reducedLook(const MapTheme& theme) const {
  scene::RibbonLook look{outlineColors(theme)};
  const bool isSlab = base_ == Surface::slab;
  const auto surface = isSlab ? outlineSurface::slab : outlineSurface::walkable;
  const graphics::Color& fill = isSlab ? theme.colors.slab : theme.colors.walkable;
  look.colors[outlineIndex(surface, outlineSurface::backdrop)] = {
      theme.outline(fill), static_cast<float>(theme.sizes.outline)};
  return look;
}

void FloorClone::copyRibbons(const scene::Node& model) {
  setRibbons(model.ribbons(), withSlabEdges(model.ribbonLook(), hasSlab_));
}

void FloorClone::setRibbons(const std::shared_ptr<const scene::Ribbons>& ribbons,
                            scene::RibbonLook look) {
  for (scene::RibbonColor& color : look.colors) color.width *= outlineShare_;
  node_->setRibbons(ribbons, std::move(look));
}

void FloorClone::setOutlineShare(float share) {
  const graphics::Transaction transaction;
  const float change = share / std::exchange(outlineShare_, share);
  scene::RibbonLook look = node_->ribbonLook();
  for (scene::RibbonColor& color : look.colors) color.width *= change;
  node_->setRibbons(node_->ribbons(), std::move(look));
}

FloorClone::~FloorClone() { node_->removeFromParent(); }

void FloorClone::reduce(std::span<const ShapeRole> roles, const MapTheme& theme,
                        double unitsPerMeter) {
  const graphics::Transaction transaction;
  const bool hasSlab =
      hasSlab_ && std::any_of(roles.begin(), roles.end(),
                              [](const ShapeRole& role) { return role.surface == Surface::slab; });
  base_ = hasSlab ? Surface::slab : Surface::walkable;
  std::vector<OutlinedShape> left;
  for (std::size_t i = 0; i < shapes_.size(); ++i) {
    const ShapeRole& role = roles[i];
    const auto& copy = shapes_[i].second;
    if (role.surface == base_ || isConnector(role))
      left.push_back({copy->geometry(), copy->transform(), role});
    else
      copy->setHidden(true);
  }
  isReduced_ = true;
  reduced_ = makeOutlines(left, unitsPerMeter);
  setRibbons(reduced_, reducedLook(theme));
}

bool FloorClone::isOf(const Map& map) const { return model_.lock() == map.mapObject; }

void FloorClone::copyLook(const MapTheme& theme) {
  const graphics::Transaction transaction;
  for (const auto& [shape, copy] : shapes_) copy->setDisplayColor(shape->displayColor());
  if (isReduced_)
    setRibbons(reduced_, reducedLook(theme));
  else if (const auto model = model_.lock())
    copyRibbons(*model);
}

void FloorClone::copyColor(const scene::Node& shape) {
  for (const auto& [original, copy] : shapes_)
    if (original.get() == &shape) copy->setDisplayColor(shape.displayColor());
}

void FloorClone::copyOutlines() {
  const auto model = model_.lock();
  if (!model || isReduced_ || model->ribbons() == node_->ribbons()) return;
  copyRibbons(*model);
}

}  // namespace orivanta
