#include "Platform/Render/SceneGatherer.hpp"

#include <optional>
#include <span>

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

  void visit(const scene::Node& node, const graphics::Matrix4& parentWorld) {
    if (node.isHidden()) return;
    const graphics::Matrix4 world = parentWorld * node.transform();
    addLight(node, world);
    if (const auto geometry = node.geometry()) addLoose(node, geometry, world);
    visitChildren(node, world);
  }

 private:
  void addLight(const scene::Node& node, const graphics::Matrix4& world) {
    if (const auto light = node.light()) snapshot_.lights.push_back({*light, world});
  }

  void addLoose(const scene::Node& node, const std::shared_ptr<const scene::Geometry>& geometry,
                const graphics::Matrix4& world) {
    for (std::size_t element = 0; element < geometry->elements().size(); ++element)
      snapshot_.loose.push_back(
          {geometry, element, world, lookOf(node, *geometry, element, time_)});
  }

  void visitChildren(const scene::Node& node, const graphics::Matrix4& world) {
    const Nodes& children = node.children(transaction_);
    if (children.empty()) return;
    const auto batch = gatherer_.batchOf(node, children);
    std::size_t next = 0;
    const auto merged = batch ? batch->children() : std::span<const scene::Batch::Child>();
    if (batch) addBatch(batch, world);
    for (const auto& child : children) {
      if (next == merged.size() || merged[next].node != child) {
        visit(*child, world);
        continue;
      }
      ++next;
      if (!child->isHidden()) addLight(*child, world * child->transform());
    }
  }

  void addBatch(const std::shared_ptr<const scene::Batch>& batch, const graphics::Matrix4& world) {
    BatchInScene& added = snapshot_.batches.emplace_back(BatchInScene{batch, world, {}});
    added.looks.reserve(batch->parts().size());
    for (const auto& part : batch->parts())
      added.looks.push_back(lookOf(*part.node, *part.geometry, part.element, time_));
  }

  SceneGatherer& gatherer_;
  SceneSnapshot& snapshot_;
  double time_;
  graphics::Transaction transaction_;
};

SceneSnapshot SceneGatherer::gather(const view::SceneView& view, double time) {
  SceneSnapshot snapshot;
  // A translucent background is drawn by the view, below the scene.
  if (const auto color = view.backgroundColor(); color && color->alpha >= 1)
    snapshot.background = *color;
  const auto viewpoint = view.viewpoint();
  if (!viewpoint) return snapshot;
  snapshot.scene = view.scene();
  snapshot.view = viewpoint->viewMatrix();
  snapshot.projection = viewpoint->projectionMatrix();
  Walk(*this, snapshot, time).visit(*snapshot.scene->rootNode(), graphics::Matrix4(1.0F));
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
