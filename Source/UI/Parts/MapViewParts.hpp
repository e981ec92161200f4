// The private parts of a map view.
#pragma once

#include <memory>
#include <vector>

#include "Platform/View/ImageView.hpp"
#include "Source/UI/Display/CameraRig.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Floors/FloorLoading.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Parts/FloorShapes.hpp"
#include "Source/UI/Parts/MarkerLayer.hpp"
#include "Source/UI/Parts/RouteLayer.hpp"

namespace orivanta {

struct MapView::Parts {
  explicit Parts(MapView& view) : rig(view), camera(view, rig), markers(view), routes(view) {}

  std::shared_ptr<Map> currentMap;  // null until a floor is shown
  CameraRig rig;
  MapCamera camera;
  FloorShapes shapes;
  MarkerLayer markers;
  RouteLayer routes;
  std::shared_ptr<MapStyle> style;        // null for the plain look
  std::shared_ptr<scene::Node> sun;       // the node of the light that casts shadows; null at first
  std::shared_ptr<view::ImageView> logo;  // null until it is added
  std::vector<std::shared_ptr<view::GestureRecognizer>> recognizers;
  std::shared_ptr<FloorLoading> floorLoad;  // null if no load is running
};

}  // namespace orivanta
