// The nodes of stacked floors in the scene.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/FloorClone.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Display/Styled/StackLayout.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// Copies of floors that share the geometry of the models, and the routes on all floors. The shown
/// floor stays where it is. Main thread.
class StackLevels {
 public:
  using Lines = std::vector<std::shared_ptr<const RouteLine>>;

  StackLevels() = default;
  ~StackLevels() { clear(); }
  StackLevels(const StackLevels&) = delete;
  StackLevels& operator=(const StackLevels&) = delete;

  /// Replaces the levels. The view has a scene and a venue.
  void build(const MapView& view, const StackLayout& layout, Lines lines, const MapTheme& theme);
  void clear();
  bool isEmpty() const { return levels_.empty(); }

  /// Another floor of the levels is shown instead of the one with the model `former`. Returns how
  /// much higher it was, or nothing if it has no level. Then nothing changes.
  std::optional<double> change(const std::shared_ptr<Map>& current,
                               const std::shared_ptr<Map>& former);

  /// 0: the floors lie in each other, 1: they are stacked.
  void setShare(double share);

  /// Sets the width of the outlines of the copies, as a share of the usual one.
  void setOutlineShare(double share);

  /// Whether there is a line with the points of another one.
  bool hasLine(const RouteLine& line) const { return indexOf(line) >= 0; }
  std::size_t lineCount() const { return lines_.size(); }

  /// Shows the lines of these routes, and hides the others.
  void showRoutes(std::span<const RouteContents> routes, const MapTheme& theme);

  /// Copies the looks of the models, which have another theme.
  void copyLooks(const MapTheme& theme);
  void copyColor(const scene::Node& shape);
  void copyOutlines();

  FloorList floors() const;

  /// Returns the floor to which a node of the scene belongs if it is a part of a copy, else null.
  std::shared_ptr<Map> floorOf(const scene::Node& node) const;

 private:
  struct Level {
    std::shared_ptr<Map> floor;
    double offset = 0;
    float opacity = 1;
    std::shared_ptr<scene::Node> carrier;               // at the offset
    std::unique_ptr<FloorClone> clone{};                // null for the shown floor
    std::vector<std::shared_ptr<scene::Node>> lines{};  // of the routes; hidden if there are none
  };

  void add(const StackedFloor& floor, const StackShapes& shapes, const MapView& view,
           const MapTheme& theme);
  void showHidden();
  void hideSlabEdges() const;
  int indexOf(const RouteLine& line) const;

  std::shared_ptr<scene::Node> group_;  // null if there are no levels
  std::vector<Level> levels_;           // the lowest first
  Lines lines_;
  float outlineShare_ = 1;
  std::vector<std::shared_ptr<scene::Node>> hidden_;  // shapes of the shown floor
  std::shared_ptr<scene::Node> model_;                // of which they are hidden; may be null
};

}  // namespace orivanta
