// Stacked floors, and the transition between floors.
#include <utility>
#include <vector>

#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

void StyledMap::setStacked(bool isStacked) {
  if (!host_.view) return;
  if (isStacked) {
    fade_.stop();
    routesChanged();
    stack_.open(theme_, motion());
  } else {
    stack_.close(motion());
  }
  stackChanged();
}

void StyledMap::routesChanged() {
  std::vector<RouteContents> routes;
  for (const RouteContents* const route : route_.routes()) routes.push_back(*route);
  stack_.setRoutes(std::move(routes), theme_);
  stackChanged();
}

void StyledMap::floorChanged(const std::shared_ptr<Map>& former) {
  if (stack_.isShown()) {
    stack_.floorChanged(former, motion());
    stackChanged();
  } else if (former->mapObject && motion() == CameraMotion::glide) {
    fade_.start(*former, *host_.view->sceneView->scene()->rootNode());
    stack_.view()->setFading(true);
  }
}

void StyledMap::advance(double time) {
  if (stack_.isOutdated())
    stack_.rebuild(theme_);
  else if (!stack_.isMoving())
    return;
  stack_.advance(time);
  stackChanged();
}

void StyledMap::stackChanged() {
  look_.setShadows(1 - stack_.share());
  auto symbols = stack_.symbols(*theme_, closures_);
  labels_.setHidden(stack_.isShown() && !symbols);
  labels_.setInstead(std::move(symbols));
  route_.setHidden(stack_.isShown());
}

}  // namespace orivanta
