#include "Platform/View/SceneView.hpp"

#include <algorithm>
#include <new>
#include <utility>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::view {

using graphics::read;
using graphics::swapGuarded;
using graphics::Transaction;

namespace {

using Nodes = std::vector<std::shared_ptr<scene::Node>>;

// Prepares what the first frame would otherwise have to compute.
bool makeReady(const Nodes& nodes) try {
  for (const auto& node : nodes) {
    if (!node) continue;
    if (auto batch = scene::Batch::make(*node)) node->setPreparedBatch(std::move(batch));
  }
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace

SceneView::SceneView(graphics::Rect frame) : View(frame) {
  setBackgroundColor(graphics::colors::white);
}

SceneView::SceneView(const Coder& coder) : View(coder) {
  setBackgroundColor(graphics::colors::white);
}

std::shared_ptr<scene::Scene> SceneView::scene() const { return read(scene_); }

void SceneView::setScene(std::shared_ptr<scene::Scene> scene) { swapGuarded(scene_, scene); }

std::shared_ptr<sprite::Scene> SceneView::overlayScene() const { return read(overlayScene_); }

void SceneView::setOverlayScene(std::shared_ptr<sprite::Scene> scene) {
  swapGuarded(overlayScene_, scene);
}

SceneRendererDelegate* SceneView::rendererDelegate() const { return read(rendererDelegate_); }

void SceneView::setRendererDelegate(SceneRendererDelegate* delegate) {
  swapGuarded(rendererDelegate_, delegate);
}

std::optional<scene::Viewpoint> SceneView::viewpoint() const {
  const Transaction transaction;
  if (!scene_) return std::nullopt;
  const auto pointOfView = scene::findPointOfView(*scene_);
  if (!pointOfView) return std::nullopt;
  return scene::Viewpoint(*pointOfView, bounds().size);
}

std::vector<scene::Hit> SceneView::hits(graphics::Point point) const {
  const Transaction transaction;
  const auto seen = viewpoint();
  if (!seen) return {};
  return scene::hitTest(*scene_, seen->ray(point));
}

graphics::Vector3 SceneView::project(const graphics::Vector3& point) const {
  const auto seen = viewpoint();
  return seen ? seen->project(point) : graphics::Vector3(0.0F);
}

void SceneView::prepare(Nodes nodes, std::function<void(bool success)> completion) {
  foundation::runInBackground(
      [nodes = std::move(nodes), completion = std::move(completion)]() mutable {
        const bool success = makeReady(nodes);
        foundation::mainQueue::async(
            [nodes = std::move(nodes), completion = std::move(completion), success] {
              if (completion) completion(success);
            });
      });
}

void SceneView::touchesBegan(std::span<const Touch> touches) {
  if (const auto overlay = overlayScene()) {
    std::vector<graphics::Point> points;
    for (const Touch& touch : touches) {
      const graphics::Point own = topmostView(*this).convert(touch.position, *this);
      points.push_back(overlay->convertFromView(own, bounds().size));
    }
    overlay->touchesBegan(points);
  }
  View::touchesBegan(touches);
}

void SceneView::draw(Canvas& canvas) {
  const auto background = backgroundColor();
  if (background && background->alpha < 1) canvas.fill(bounds(), *background);
  canvas.draw(*this, bounds());
}

bool SceneView::isAnimating() const {
  const Transaction transaction;
  const auto& animated = contents().animated;
  return std::any_of(animated.begin(), animated.end(),
                     [](const auto& each) {
                       const auto material = each.lock();
                       return material && material->isAnimating();
                     }) ||
         View::isAnimating();
}

bool SceneView::differsFromFrame() const { return drawn_ != fields() || View::differsFromFrame(); }

void SceneView::storeFrame() {
  drawn_ = fields();
  View::storeFrame();
}

SceneView::Fields SceneView::fields() const {
  const Transaction transaction;
  Fields fields;
  const Contents& seen = contents();
  if (const auto camera = seen.camera.lock()) fields.camera = *camera;
  for (const auto& each : seen.lights)
    if (const auto light = each.lock()) fields.lights.push_back(*light);
  return fields;
}

// Searched again only after a change.
const SceneView::Contents& SceneView::contents() const {
  const Transaction transaction;
  if (contentsChange_ == graphics::changeCount()) return contents_;
  contentsChange_ = graphics::changeCount();
  contents_ = {};
  if (!scene_) return contents_;
  if (const auto pointOfView = scene::findPointOfView(*scene_))
    contents_.camera = pointOfView->camera();
  std::vector<const scene::Node*> pending{scene_->rootNode().get()};
  while (!pending.empty()) {
    const scene::Node& node = *pending.back();
    pending.pop_back();
    if (node.isHidden()) continue;
    if (const auto light = node.light()) contents_.lights.push_back(light);
    if (const auto geometry = node.geometry())
      for (const auto& material : geometry->materials())
        if (material && material->isAnimating()) contents_.animated.push_back(material);
    for (const auto& child : node.children(transaction)) pending.push_back(child.get());
  }
  return contents_;
}

}  // namespace orivanta::view
