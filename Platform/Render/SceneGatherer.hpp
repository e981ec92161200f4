// Copies from a scene what a frame needs.
#pragma once

#include <unordered_map>

#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// If many children of a node share vertex data, they are drawn as a batch. A batch that was not
/// prepared is made here and kept as long as the node exists.
class SceneGatherer {
 public:
  /// Runs in a transaction, so changes on other threads wait. `scale`: pixels per point.
  SceneSnapshot gather(const view::SceneView& view, double time, double scale);

  /// Deletes the batches of nodes that no longer exist.
  void collect();

 private:
  struct MadeBatch {
    std::weak_ptr<const scene::Node> node;
    std::shared_ptr<const scene::Batch> batch;
  };
  class Walk;

  std::shared_ptr<const scene::Batch> batchOf(
      const scene::Node& node, const std::vector<std::shared_ptr<scene::Node>>& children);

  std::unordered_map<const scene::Node*, MadeBatch> made_;
};

}  // namespace orivanta::render
