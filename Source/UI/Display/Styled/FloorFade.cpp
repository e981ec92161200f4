#include "Source/UI/Display/Styled/FloorFade.hpp"

#include <algorithm>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta {

namespace {

constexpr double seconds = 0.25;
constexpr float lift = 0.1F;  // scene units; the floors often lie in one plane

}  // namespace

void FloorFade::start(const Map& former, scene::Node& root) {
  const graphics::Transaction transaction;
  stop();
  clone_ = std::make_unique<FloorClone>(former);
  scene::Node& node = clone_->node();
  node.setPosition(scene::Axis::z, node.position().z + lift);
  root.addChild(clone_->sharedNode());
}

void FloorFade::stop() {
  const graphics::Transaction transaction;
  clone_.reset();
  start_.reset();
}

void FloorFade::advance(double time) {
  if (!clone_) return;
  if (!start_) start_ = time;
  const double share = std::clamp((time - *start_) / seconds, 0.0, 1.0);
  if (share >= 1) return stop();
  clone_->node().setOpacity(static_cast<float>(1 - share));
}

}  // namespace orivanta
