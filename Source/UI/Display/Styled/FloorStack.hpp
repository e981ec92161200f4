// Shows all floors of a venue above each other.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/CameraPose.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Display/Styled/StackLevels.hpp"
#include "Source/UI/Display/Styled/StackSymbols.hpp"
#include "Source/UI/Display/Styled/StackView.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// The shown floor stays where it is; the others are drawn above and below it as copies that share
/// its geometry. They exist only while the floors are stacked, or come together again. Main thread.
class FloorStack {
 public:
  FloorStack() = default;
  ~FloorStack() { detach(); }
  FloorStack(const FloorStack&) = delete;
  FloorStack& operator=(const FloorStack&) = delete;

  void attach(MapView& view);

  /// Removes the stack at once, and restores the camera.
  void detach();

  /// Whether the floors are stacked, or are about to be.
  bool isOn() const { return isOn_; }

  /// Whether there are copies of floors.
  bool isShown() const { return !levels_.isEmpty(); }

  /// 0: the floors lie in each other, 1: they are stacked.
  double share() const { return share_; }

  /// Stacks the floors that have a model. Does nothing if the map view shows no floor.
  void open(const std::shared_ptr<const MapTheme>& theme, CameraMotion motion);

  /// Shows the whole stack, if there is one.
  void frame(CameraMotion motion);

  /// Returns to the shown floor and to the former view of it.
  void close(CameraMotion motion);

  /// Stacks the floors anew, without a motion, because floors or their models have changed.
  void rebuild(const std::shared_ptr<const MapTheme>& theme);

  /// Removes the stack at once. The camera is not restored if it belongs to another scene now.
  void drop(bool restoresCamera);

  /// The map view shows another floor: lets the floors come together in it.
  void floorChanged(const std::shared_ptr<Map>& former, CameraMotion motion);

  /// Sets the routes that lead through the floors. Stacks the floors anew if they are shown and
  /// another route has been added.
  void setRoutes(std::vector<RouteContents> routes, const std::shared_ptr<const MapTheme>& theme);

  /// Sets the mark of the selected place; nothing for none.
  void setSelected(std::optional<RouteMark> selected);

  /// Whether the floors are stacked for a route that has been removed.
  bool isOutdated() const;

  /// Advances the motion of the floors to the time of the next frame.
  void advance(double time);
  bool isMoving() const { return motion_.has_value(); }

  /// Copies the looks of the models, which have another theme.
  void copyLooks(const std::shared_ptr<const MapTheme>& theme);

  // See `StackLevels`.
  void copyColor(const scene::Node& shape) { levels_.copyColor(shape); }
  void copyOutlines() { levels_.copyOutlines(); }
  FloorList floors() const { return levels_.floors(); }
  std::shared_ptr<Map> floorOf(const scene::Node& node) const { return levels_.floorOf(node); }

  /// Returns symbols for the stack while it is complete, otherwise null. They are made anew after
  /// `copyLooks`.
  std::shared_ptr<const FloorLabels> symbols(const MapTheme& theme,
                                             const guidance::Closures& closures);

  /// Returns the view that draws the names and the marks. Null if detached.
  StackView* view() const { return shown_.get(); }

 private:
  struct Motion {
    double from;
    double to;
    std::optional<double> start;  // empty until first advanced
  };
  struct FlatView {
    CameraPose pose;
    double fieldOfView;
  };

  void build(const std::shared_ptr<const MapTheme>& theme);
  FloorList floorsOnRoutes() const;
  void show(StackContents contents);
  CameraPose stackPose() const;
  double outlineShare() const;
  void moveTo(double share, CameraMotion motion);
  void setShare(double share);
  void clear();

  MapView* map_ = nullptr;
  std::shared_ptr<StackView> shown_;
  bool isOn_ = false;
  double share_ = 0;
  std::optional<Motion> motion_;
  StackLevels levels_;
  std::shared_ptr<const StackContents> contents_;
  std::shared_ptr<const StackCover> cover_;
  std::shared_ptr<const FloorLabels> symbols_;  // null until needed
  graphics::Box extent_;                        // of the whole stack
  std::vector<graphics::Vector3> corners_;      // of the shapes of the stack
  double turn_ = 0;
  std::optional<FlatView> flat_;  // to which the camera returns
  std::vector<RouteContents> routes_;
  std::optional<RouteMark> selected_;
};

}  // namespace orivanta
