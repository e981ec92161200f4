#include "Platform/Render/SceneGatherer.hpp"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/View/SceneView.hpp"

namespace orivanta::render {

namespace {

using Nodes = std::vector<std::shared_ptr<scene::Node>>;

// Models with fewer parts are merged with the other single nodes instead.
constexpr std::size_t fewestOfModel = 16;

// Whether the first two geometries of the children differ but share vertices, like the parts of one
// model.
bool arePartsOfModel(std::span<const std::shared_ptr<scene::Node>> children) {
  if (children.size() < fewestOfModel) return false;
  std::shared_ptr<scene::Geometry> first;
  for (const auto& child : children) {
    auto geometry = child->geometry();
    const auto* source = geometry ? geometry->source(scene::Semantic::vertex) : nullptr;
    if (source == nullptr) continue;
    if (first)
      return geometry != first && source->data == first->source(scene::Semantic::vertex)->data;
    first = std::move(geometry);
  }
  return false;
}

}  // namespace

// One traversal of a scene.
class SceneGatherer::Walk {
 public:
  Walk(SceneGatherer& gatherer, SceneSnapshot& snapshot, double time)
      : gatherer_(gatherer), snapshot_(snapshot), time_(time) {}

  // How translucent a node is, and with which others it is blended.
  struct Fading {
    float opacity = 1.0F;
    std::uint16_t group = 0;
  };

  void visit(const scene::Node& node, const graphics::Matrix4& parentWorld,
             const Fading& parentFading) {
    if (node.isHidden()) return;
    const Fading fading = fadingOf(node, parentFading);
    if (fading.opacity <= 0) return;
    const graphics::Matrix4 world = parentWorld * node.transform();
    addAttached(node, world, fading);
    if (const auto geometry = node.geometry()) addLoose(node, geometry, world, fading);
    visitChildren(node, world, fading);
  }

 private:
  Fading fadingOf(const scene::Node& node, const Fading& parent) {
    constexpr std::size_t mostGroups = std::numeric_limits<std::uint16_t>::max();
    const float opacity = node.opacity();
    if (!(opacity < 1)) return parent;
    const Fading fading{parent.opacity * opacity, parent.group};
    if (fading.opacity <= 0 || snapshot_.groups.size() == mostGroups) return fading;
    const auto next = static_cast<std::uint16_t>(snapshot_.groups.size() + 1);
    const auto [found, isNew] = groups_.try_emplace(&node, next);
    if (isNew) snapshot_.groups.push_back(fading.opacity);
    return {fading.opacity, found->second};
  }

  void addAttached(const scene::Node& node, const graphics::Matrix4& world, const Fading& fading) {
    if (const auto light = node.light()) snapshot_.lights.push_back({*light, world});
    if (auto ribbons = node.ribbons())
      snapshot_.ribbons.push_back({std::move(ribbons), node.ribbonLook(), world, fading.group});
  }

  PartLook lookIn(const Fading& fading, const scene::Node& node, const scene::Geometry& geometry,
                  std::size_t element) const {
    PartLook look = lookOf(node, geometry, element, time_);
    if (fading.opacity >= 1) return look;
    look.castsShadow = false;
    if (fading.opacity <= 0) look.visible = false;
    if (look.translucent)
      look.color[3] = static_cast<std::uint8_t>(
          std::lround(static_cast<float>(look.color[3]) * fading.opacity));
    else
      look.group = fading.group;
    return look;
  }

  void addLoose(const scene::Node& node, const std::shared_ptr<const scene::Geometry>& geometry,
                const graphics::Matrix4& world, const Fading& fading) {
    for (std::size_t element = 0; element < geometry->elements().size(); ++element)
      snapshot_.loose.push_back(
          {geometry, element, world, lookIn(fading, node, *geometry, element)});
  }

  void visitChildren(const scene::Node& node, const graphics::Matrix4& world,
                     const Fading& fading) {
    const Nodes& children = node.children(transaction_);
    if (children.empty()) return;
    const auto batch = gatherer_.batchOf(node, children);
    std::size_t next = 0;
    const auto merged = batch ? batch->children() : std::span<const scene::Batch::Child>();
    if (batch) addBatch(batch, world, fading);
    for (const auto& child : children) {
      if (next == merged.size() || merged[next].node != child) {
        visit(*child, world, fading);
        continue;
      }
      ++next;
      if (child->isHidden()) continue;
      const Fading own = fadingOf(*child, fading);
      if (own.opacity > 0) addAttached(*child, world * child->transform(), own);
    }
  }

  void addBatch(const std::shared_ptr<const scene::Batch>& batch, const graphics::Matrix4& world,
                const Fading& fading) {
    std::vector<PartLook> looks;
    looks.reserve(batch->parts().size());
    for (const auto& part : batch->parts())
      looks.push_back(
          lookIn(fadingOf(*part.node, fading), *part.node, *part.geometry, part.element));
    snapshot_.batches.push_back({batch, world, std::move(looks)});
  }

  SceneGatherer& gatherer_;
  SceneSnapshot& snapshot_;
  double time_;
  std::unordered_map<const scene::Node*, std::uint16_t> groups_;
  graphics::Transaction transaction_;
};

SceneSnapshot SceneGatherer::gather(const view::SceneView& view, double time, double scale) {
  SceneSnapshot snapshot;
  snapshot.scale = scale;
  // A translucent background is drawn by the view, below the scene.
  if (const auto color = view.backgroundColor(); color && color->alpha >= 1)
    snapshot.background = *color;
  const auto viewpoint = view.viewpoint();
  if (!viewpoint) return snapshot;
  snapshot.scene = view.scene();
  snapshot.view = viewpoint->viewMatrix();
  snapshot.projection = viewpoint->projectionMatrix();
  Walk(*this, snapshot, time).visit(*snapshot.scene->rootNode(), graphics::Matrix4(1.0F), {});
  return snapshot;
}

std::shared_ptr<const scene::Batch> SceneGatherer::batchOf(const scene::Node& node,
                                                           const Nodes& children) {
  if (children.empty()) return nullptr;
  if (auto prepared = node.preparedBatch(); prepared && prepared->matches(node)) return prepared;
  const auto found = made_.find(&node);
  if (found != made_.end()) {
    if (!found->second.node.expired() && found->second.batch->matches(node))
      return found->second.batch;
    made_.erase(found);
  }
  if (!arePartsOfModel(children)) return nullptr;
  auto batch = scene::Batch::make(node);
  if (batch) made_.insert({&node, {node.weak_from_this(), batch}});
  return batch;
}

void SceneGatherer::collect() {
  for (auto made = made_.begin(); made != made_.end();)
    made = made->second.node.expired() ? made_.erase(made) : std::next(made);
}

}  // namespace orivanta::render
