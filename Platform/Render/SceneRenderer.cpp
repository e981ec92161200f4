#include "Platform/Render/SceneRenderer.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "Platform/Render/Lighting.hpp"
#include "Platform/Render/Projection.hpp"
#include "Platform/Render/ScenePass.hpp"

namespace orivanta::render {

namespace {

void clear(const graphics::Color& background) {
  glDisable(GL_SCISSOR_TEST);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glDepthMask(GL_TRUE);
  const float alpha = background.alpha;
  glClearColor(background.red * alpha, background.green * alpha, background.blue * alpha, alpha);
  glStencilMask(~0U);
  glClearDepthf(1.0F);
  glClearStencil(0);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

std::vector<MeshPart> partsOf(const scene::Batch& batch) {
  std::vector<MeshPart> parts;
  parts.reserve(batch.parts().size());
  for (const auto& part : batch.parts())
    parts.push_back({part.firstIndex, part.indexCount, part.box, part.isShell, part.layer});
  return parts;
}

int highestLayerOf(std::span<const BatchInScene> batches) {
  int highest = 0;
  for (const BatchInScene& batch : batches)
    if (!batch.batch->parts().empty())
      highest = std::max(highest, int{batch.batch->parts().back().layer});
  return highest;
}

// The scene units that a pixel covers at the point of the meshes nearest to the camera.
float smallestDetail(std::span<const SceneMesh> meshes, const graphics::Matrix4& view,
                     const graphics::Matrix4& projection, int height) {
  float nearest = std::numeric_limits<float>::max();
  for (const SceneMesh& mesh : meshes)
    nearest = std::min(nearest, -transformed(mesh.box(), view * mesh.world).max.z);
  return unitsPerPixel(std::max(nearest, nearPlane(projection)), projection, height);
}

// Removes the entries whose owner, a weak reference, no longer exists.
template <class Entries, class Owner>
void removeOrphans(Entries& entries, Owner owner) {
  for (auto entry = entries.begin(); entry != entries.end();)
    entry = (entry->second.*owner).expired() ? entries.erase(entry) : std::next(entry);
}

}  // namespace

SceneRenderer::SceneRenderer(ImageTextures& images) : images_(images) {}

void SceneRenderer::render(const SceneSnapshot& snapshot, const SceneTarget& target,
                           FrameStatistics& statistics) {
  std::vector<SceneMesh> meshes;
  const Lighting lighting(snapshot.lights, snapshot.view);
  const ShadowMap* shadows = nullptr;
  if (snapshot.scene) {
    SceneState& state = stateOf(snapshot.scene);
    meshes = updateMeshes(state, snapshot, target.height(), statistics);
    if (const auto* caster = lighting.shadowCaster()) {
      if (!state.shadows) state.shadows.emplace();
      const float detail =
          smallestDetail(meshes, snapshot.view, snapshot.projection, target.height());
      if (state.shadows->update(*caster, meshes, detail, shaders_, statistics))
        shadows = &*state.shadows;
    }
  }
  target.begin();
  clear(snapshot.background);
  const std::vector<SceneRibbons> ribbons = updateRibbons(snapshot, statistics);
  ScenePass({snapshot.view, snapshot.projection, lighting, shadows, target.width(), target.height(),
             static_cast<float>(snapshot.scale), highestLayerOf(snapshot.batches)},
            {meshes, ribbons, snapshot.groups}, {shaders_, ribbonShaders_, images_, statistics})
      .draw();
  target.finish();
}

SceneRenderer::SceneState& SceneRenderer::stateOf(
    const std::shared_ptr<const scene::Scene>& scene) {
  SceneState& state = scenes_[scene.get()];
  if (state.scene.expired()) state = {scene, {}, {}};
  return state;
}

std::vector<SceneMesh> SceneRenderer::updateMeshes(SceneState& state, const SceneSnapshot& snapshot,
                                                   int height, FrameStatistics& statistics) {
  std::vector<SceneMesh> meshes;
  const float tolerance =
      invisibleTolerance(snapshot.loose, snapshot.view, snapshot.projection, height);
  state.loose.update(snapshot.loose, tolerance, statistics);
  if (!state.loose.isEmpty())
    meshes.push_back({&state.loose.mesh(), state.loose.looks(), graphics::Matrix4(1.0F),
                      highestLayerOf(snapshot.batches)});
  std::unordered_map<const void*, std::size_t> uses;  // of the arrays of batches
  for (const BatchInScene& batch : snapshot.batches)
    meshes.push_back(
        {&meshOf(batch, uses[batch.batch->data().get()]++, statistics), batch.looks, batch.world});
  return meshes;
}

const Mesh& SceneRenderer::meshOf(const BatchInScene& inScene, std::size_t preceding,
                                  FrameStatistics& statistics) {
  const scene::Batch& batch = *inScene.batch;
  BatchMesh& entry = batches_[{batch.data().get(), preceding}];
  if (entry.data.expired()) {
    entry.data = batch.data();
    entry.mesh.setGeometry(batch.vertices(), batch.indices(), partsOf(batch), 0, 0, statistics);
  }
  entry.mesh.setLooks(inScene.looks, statistics);
  return entry.mesh;
}

std::vector<SceneRibbons> SceneRenderer::updateRibbons(const SceneSnapshot& snapshot,
                                                       FrameStatistics& statistics) {
  std::vector<SceneRibbons> ribbons;
  for (const RibbonsInScene& seen : snapshot.ribbons) {
    KeptRibbons& entry = ribbons_[seen.ribbons.get()];
    if (entry.ribbons.expired()) {
      entry.ribbons = seen.ribbons;
      entry.mesh = std::make_unique<RibbonMesh>(*seen.ribbons, statistics);
    }
    ribbons.push_back({entry.mesh.get(), &seen});
  }
  return ribbons;
}

void SceneRenderer::collect() {
  removeOrphans(ribbons_, &KeptRibbons::ribbons);
  removeOrphans(batches_, &BatchMesh::data);
  removeOrphans(scenes_, &SceneState::scene);
}

}  // namespace orivanta::render
