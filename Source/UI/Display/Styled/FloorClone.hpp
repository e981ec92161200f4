// A copy of a floor's model that is drawn beside it.
// Private header.
#pragma once

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"

namespace orivanta {

/// Returns a look without the edges between a slab and its surroundings, which are not drawn
/// without the slab; or with them.
scene::RibbonLook withSlabEdges(scene::RibbonLook look, bool areShown);

/// Nodes with the geometries, names and looks of a model's shapes. They cast no shadows. Main
/// thread.
class FloorClone {
 public:
  using Shapes = std::vector<std::shared_ptr<scene::Node>>;

  /// Copies the model of a floor, which must have one. The slabs among the shapes `leftOut` are
  /// hidden, with their outlines.
  explicit FloorClone(const Map& map, const Shapes& leftOut = {});
  ~FloorClone();
  FloorClone(const FloorClone&) = delete;
  FloorClone& operator=(const FloorClone&) = delete;

  /// Leaves the slab and the connectors alone; without a slab, also what people walk on. `roles`
  /// has one element for each shape. `unitsPerMeter`: of the floor.
  void reduce(std::span<const ShapeRole> roles, const MapTheme& theme, double unitsPerMeter);

  /// The parent of the copies. The destructor removes it from its parent.
  scene::Node& node() const { return *node_; }
  const std::shared_ptr<scene::Node>& sharedNode() const { return node_; }

  /// Whether it is a copy of the map's current model.
  bool isOf(const Map& map) const;

  /// Sets the width of the outlines, as a share of that of the model.
  void setOutlineShare(float share);

  /// Copies the colors and the outlines of the model again.
  void copyLook(const MapTheme& theme);

  /// Copies the color of a shape if it belongs to the model.
  void copyColor(const scene::Node& shape);

  /// Copies the outlines if the model has others. Fast enough for every frame.
  void copyOutlines();

 private:
  scene::RibbonLook reducedLook(const MapTheme& theme) const;
  void copyRibbons(const scene::Node& model);
  void setRibbons(const std::shared_ptr<const scene::Ribbons>& ribbons, scene::RibbonLook look);

  std::weak_ptr<scene::Node> model_;
  std::shared_ptr<scene::Node> node_;
  std::vector<std::pair<std::shared_ptr<scene::Node>, std::shared_ptr<scene::Node>>> shapes_;
  std::shared_ptr<const scene::Ribbons> reduced_;       // own outlines; null unless reduced
  ShapeRole::Surface base_ = ShapeRole::Surface::slab;  // what is left of a reduced floor
  bool isReduced_ = false;
  bool hasSlab_ = true;
  float outlineShare_ = 1;
};

}  // namespace orivanta
