// Copies out of a scene what a frame shows of it.
#pragma once

#include <unordered_map>

#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// A node whose many children share vertex data is drawn as a batch even if nobody prepared one: it
/// is made here, and kept as long as the node lives.
class SceneGatherer {
 public:
  /// Any thread's changes wait meanwhile.
  SceneSnapshot gather(const view::SceneView& view, double time);

  /// Forgets the batches of nodes that are gone.
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
