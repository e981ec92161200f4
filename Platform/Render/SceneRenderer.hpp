// Draws 3D scenes, and keeps their data on the GPU.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "Platform/Render/ImageTextures.hpp"
#include "Platform/Render/LooseMesh.hpp"
#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/RibbonPass.hpp"
#include "Platform/Render/SceneMesh.hpp"
#include "Platform/Render/SceneSnapshot.hpp"
#include "Platform/Render/SceneTarget.hpp"
#include "Platform/Render/ShadowMap.hpp"

namespace orivanta::render {

class SceneRenderer {
 public:
  explicit SceneRenderer(ImageTextures& images);

  /// Waits until the programs are compiled that most scenes need. Call it at the beginning of a
  /// frame: later, this would also wait until what was drawn before is complete.
  void prepare() { ribbonShaders_.plain(); }

  /// Draws into `target` and finishes its texture.
  void render(const SceneSnapshot& snapshot, const SceneTarget& target,
              FrameStatistics& statistics);

  /// Deletes the data of batches, ribbons and scenes that no longer exist.
  void collect();

 private:
  /// The arrays of a batch, and how many batches with the same arrays precede it in a frame. Each
  /// has a mesh of its own, with its own looks.
  using BatchKey = std::pair<const void*, std::size_t>;

  struct BatchMesh {
    std::weak_ptr<const void> data;
    Mesh mesh;
  };

  struct KeptRibbons {
    std::weak_ptr<const scene::Ribbons> ribbons;
    std::unique_ptr<RibbonMesh> mesh;
  };

  /// The data kept for one scene.
  struct SceneState {
    std::weak_ptr<const scene::Scene> scene;
    LooseMesh loose;
    std::optional<ShadowMap> shadows;
  };

  const Mesh& meshOf(const BatchInScene& batch, std::size_t preceding, FrameStatistics& statistics);
  std::vector<SceneMesh> updateMeshes(SceneState& state, const SceneSnapshot& snapshot, int height,
                                      FrameStatistics& statistics);
  std::vector<SceneRibbons> updateRibbons(const SceneSnapshot& snapshot,
                                          FrameStatistics& statistics);
  SceneState& stateOf(const std::shared_ptr<const scene::Scene>& scene);

  ImageTextures& images_;
  MeshShaders shaders_;
  RibbonShaders ribbonShaders_;
  std::map<BatchKey, BatchMesh> batches_;
  std::unordered_map<const scene::Ribbons*, KeptRibbons> ribbons_;
  std::unordered_map<const scene::Scene*, SceneState> scenes_;
};

}  // namespace orivanta::render
