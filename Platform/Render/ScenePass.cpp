#include "Platform/Render/ScenePass.hpp"

#include <algorithm>
#include <functional>
#include <glm/matrix.hpp>
#include <limits>
#include <tuple>
#include <utility>

#include "Platform/Render/Projection.hpp"

namespace orivanta::render {

namespace {

bool isOpaqueColor(const PartLook& look) {
  return look.visible && !look.translucent && !look.image;
}
bool isOpaqueImage(const PartLook& look) { return look.visible && !look.translucent && look.image; }

auto imageKey(const PartLook& look) { return std::tuple(look.image.get(), look.wrapS, look.wrapT); }

}  // namespace

ScenePass::ScenePass(const SceneSight& sight, std::span<const SceneMesh> meshes,
                     MeshShaders& shaders, ImageTextures& images, FrameStatistics& statistics)
    : view_(sight.view),
      projection_(sight.projection),
      lighting_(sight.lighting),
      shadows_(sight.shadows),
      meshes_(meshes),
      shaders_(shaders),
      images_(images),
      statistics_(statistics) {
  for (const SceneMesh& mesh : meshes_) {
    const graphics::Matrix4 meshToView = view_ * mesh.world;
    sights_.push_back({Frustum(projection_ * meshToView), glm::inverse(meshToView)[3].z});
  }
  tightenDepth();
}

// The camera's near and far planes often enclose much more than the scene. Moving them closer
// improves the depth precision without changing the rendered image.
void ScenePass::tightenDepth() {
  graphics::Box box;  // in the camera's space
  for (const SceneMesh& mesh : meshes_) box.add(transformed(mesh.box(), view_ * mesh.world));
  if (box.isEmpty()) return;
  const float near = std::max(nearPlane(projection_), -box.max.z * 0.99F);
  const float far = std::min(farPlane(projection_), -box.min.z * 1.01F);
  if (near >= far) return;
  projection_[2][2] = (near + far) / (near - far);
  projection_[3][2] = 2 * near * far / (near - far);
}

void ScenePass::draw() {
  if (shadows_ != nullptr) shadows_->bind(meshUnits::shadow);
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LEQUAL);
  glDisable(GL_BLEND);
  drawOpaqueColors();
  drawOpaqueImages();
  drawTranslucent();
  glBindSampler(meshUnits::image, 0);
  glDisable(GL_CULL_FACE);
  glDisable(GL_POLYGON_OFFSET_FILL);
}

const ScenePass::MeshSight& ScenePass::sightOf(const SceneMesh& mesh) const {
  return sights_[static_cast<std::size_t>(&mesh - meshes_.data())];
}

bool ScenePass::sees(const SceneMesh& mesh, std::size_t part) const {
  return sightOf(mesh).frustum.sees(mesh.parts()[part].box);
}

// The near plane may cut bodies open, so that their back faces become visible.
bool ScenePass::seesFrontAlone(const SceneMesh& mesh, std::size_t part) const {
  const MeshPart& seen = mesh.parts()[part];
  const MeshSight& sight = sightOf(mesh);
  return seen.isShell && lighting_.isFarAway() && sight.cameraHeight > seen.box.max.z &&
         sight.frustum.isBeyondNear(seen.box);
}

void ScenePass::drawOpaqueColors() {
  for (const SceneMesh& mesh : meshes_) {
    const auto parts = mesh.parts();
    for (std::size_t first = 0, end = 0; first < parts.size(); first = end) {
      while (end < parts.size() && parts[end].layer == parts[first].layer) ++end;
      drawLayer(mesh, first, end);
    }
  }
}

void ScenePass::drawLayer(const SceneMesh& mesh, std::size_t first, std::size_t end) {
  const auto choose = [&](std::size_t i) {
    if (!isOpaqueColor(mesh.looks[first + i])) return Choice::leave;
    return sees(mesh, first + i) ? Choice::draw : Choice::allow;
  };
  const auto [fronts, bothSides] =
      chooseSidedRuns(mesh.parts().subspan(first, end - first), choose,
                      [&](std::size_t i) { return seesFrontAlone(mesh, first + i); });
  setLayer(mesh, first);
  drawColors(mesh, fronts, /*frontAlone=*/true);
  drawColors(mesh, bothSides, /*frontAlone=*/false);
}

void ScenePass::drawColors(const SceneMesh& mesh, std::span<const Run> runs, bool frontAlone) {
  if (runs.empty()) return;
  select(false, frontAlone);
  bindMesh(mesh);
  Mesh::draw(runs, statistics_);
}

// Adjacent parts of a mesh with the same image share a draw call.
void ScenePass::drawOpaqueImages() {
  for (const SceneMesh& mesh : meshes_) {
    std::size_t part = 0;
    const std::size_t count = mesh.looks.size();
    while (part < count) {
      if (!isOpaqueImage(mesh.looks[part])) {
        ++part;
        continue;
      }
      const std::size_t first = part;
      const bool frontAlone = seesFrontAlone(mesh, first);
      const auto isAlike = [&](std::size_t i) {
        return isOpaqueImage(mesh.looks[i]) &&
               imageKey(mesh.looks[i]) == imageKey(mesh.looks[first]) &&
               mesh.parts()[i].layer == mesh.parts()[first].layer &&
               seesFrontAlone(mesh, i) == frontAlone;
      };
      while (part < count && isAlike(part)) ++part;
      const auto runs = chooseRuns(mesh.parts().subspan(first, part - first), [&](std::size_t i) {
        return sees(mesh, first + i) ? Choice::draw : Choice::allow;
      });
      if (runs.empty()) continue;
      select(true, frontAlone);
      setLayer(mesh, first);
      bindMesh(mesh);
      bindImage(mesh.looks[first]);
      Mesh::draw(runs, statistics_);
    }
  }
}

// Draws back to front, by the centers of the parts' boxes, without writing to the depth buffer.
void ScenePass::drawTranslucent() {
  std::vector<std::pair<float, Place>> places;
  for (const SceneMesh& mesh : meshes_)
    for (std::size_t part = 0; part < mesh.looks.size(); ++part) {
      if (!mesh.looks[part].visible || !mesh.looks[part].translucent || !sees(mesh, part)) continue;
      const graphics::Vector4 middle(mesh.parts()[part].box.center(), 1.0F);
      places.push_back({(view_ * (mesh.world * middle)).z, {&mesh, part}});
    }
  if (places.empty()) return;
  std::stable_sort(places.begin(), places.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  glDepthMask(GL_FALSE);
  for (const auto& [depth, place] : places) {
    const PartLook& look = place.mesh->looks[place.part];
    select(look.image != nullptr, false);
    setLayer(*place.mesh, place.part);
    bindMesh(*place.mesh);
    if (look.image) bindImage(look);
    const MeshPart& part = place.mesh->parts()[place.part];
    const Run run{part.firstIndex, part.indexCount};
    Mesh::draw({&run, 1}, statistics_);
  }
  glDepthMask(GL_TRUE);
  glDisable(GL_BLEND);
}

// Selects the program for the next parts, and whether to draw back faces.
void ScenePass::select(bool textured, bool frontAlone) {
  const MeshProgram& program =
      shaders_.lit({textured, shadows_ != nullptr, frontAlone, lighting_.count()});
  if (program_ == &program) return;
  program_ = &program;
  if (frontAlone)
    glEnable(GL_CULL_FACE);
  else
    glDisable(GL_CULL_FACE);
  program.program.use();
  setSceneUniforms();
}

void ScenePass::setSceneUniforms() const {
  const Program& program = program_->program;
  program.set(program_->viewToClip, projection_);
  lighting_.setUniforms(*program_);
  if (shadows_ == nullptr) return;
  program.set(program_->viewToShadow, shadows_->sceneToMap() * glm::inverse(view_));
  program.set(program_->shadowOffset, shadows_->offset());
  program.set(program_->shadowTexel, shadows_->texel());
}

// Moves each layer closer to the camera than the one below. The constant offset covers rounding of
// depth values in a plane. The offset by slope covers the rounding of corners to fractions of a
// pixel.
void ScenePass::setLayer(const SceneMesh& mesh, std::size_t part) {
  constexpr float shareOfSlope = 1.0F / 64;
  constexpr float leastSteps = 8;
  const int layer = mesh.raised + mesh.parts()[part].layer;
  if (layer == 0) {
    glDisable(GL_POLYGON_OFFSET_FILL);
    return;
  }
  const auto height = static_cast<float>(layer);
  glEnable(GL_POLYGON_OFFSET_FILL);
  glPolygonOffset(-shareOfSlope * height, -leastSteps * height);
}

void ScenePass::bindMesh(const SceneMesh& mesh) {
  mesh.mesh->bind();
  program_->program.set(program_->meshToView, view_ * mesh.world);
}

void ScenePass::bindImage(const PartLook& look) {
  glActiveTexture(GL_TEXTURE0 + meshUnits::image);
  images_.bind(look.image, TexelSpace::linear, true, statistics_);
  images_.bindSampler(meshUnits::image, look.wrapS, look.wrapT);
}

}  // namespace orivanta::render
