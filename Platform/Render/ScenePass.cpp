#include "Platform/Render/ScenePass.hpp"

#include <algorithm>
#include <functional>
#include <glm/matrix.hpp>
#include <limits>
#include <tuple>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Platform/Render/DepthLayer.hpp"
#include "Platform/Render/Projection.hpp"

namespace orivanta::render {

namespace {

bool isOpaque(const PartLook& look, std::uint16_t group) {
  return look.visible && !look.translucent && look.group == group;
}

auto imageKey(const PartLook& look) { return std::tuple(look.image.get(), look.wrapS, look.wrapT); }

}  // namespace

ScenePass::ScenePass(const SceneSight& sight, const SceneContents& contents,
                     const SceneTools& tools)
    : view_(sight.view),
      projection_(sight.projection),
      lighting_(sight.lighting),
      shadows_(sight.shadows),
      contents_(contents),
      meshes_(contents.meshes),
      shaders_(tools.shaders),
      images_(tools.images),
      statistics_(tools.statistics) {
  for (const SceneMesh& mesh : meshes_) {
    const graphics::Matrix4 meshToView = view_ * mesh.world;
    sights_.push_back({Frustum(projection_ * meshToView), glm::inverse(meshToView)[3].z});
  }
  tightenDepth();
  if (!contents.ribbons.empty())
    ribbons_.emplace(
        RibbonSight{view_, projection_, static_cast<float>(sight.width),
                    static_cast<float>(sight.height), sight.pixelsPerPoint, sight.highestLayer + 1},
        contents.ribbons, tools.ribbonShaders, statistics_);
}

// The camera's near and far planes often enclose much more than the scene. Moving them closer
// improves the depth precision without changing the rendered image.
void ScenePass::tightenDepth() {
  graphics::Box box;  // in the camera's space
  for (const SceneMesh& mesh : meshes_) box.add(transformed(mesh.box(), view_ * mesh.world));
  for (const SceneRibbons& ribbons : contents_.ribbons)
    box.add(transformed(ribbons.mesh->box(), view_ * ribbons.seen->world));
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
  drawOpaque(0);
  drawRibbons(0, 1.0F);
  std::uint16_t group = 0;
  for (const float opacity : contents_.groups) drawGroup(++group, opacity);
  drawTranslucent();
  glBindSampler(meshUnits::image, 0);
  glDisable(GL_CULL_FACE);
  glDisable(GL_POLYGON_OFFSET_FILL);
}

// Draws depth alone first, so that only what is in front is blended. Marks each sample that it
// blends, so that surfaces in one plane are blended once. `RibbonPass` uses the lower marks.
void ScenePass::drawGroup(std::uint16_t group, float opacity) {
  constexpr int mostMarks = 255;
  glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
  drawOpaque(group);
  if (ribbons_) ribbons_->drawDepth(group);
  program_ = nullptr;
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glEnable(GL_BLEND);
  glBlendColor(0, 0, 0, opacity);
  glBlendFunc(GL_CONSTANT_ALPHA, GL_ONE_MINUS_CONSTANT_ALPHA);
  glEnable(GL_STENCIL_TEST);
  glStencilFunc(GL_NOTEQUAL, mostMarks - group % (mostMarks / 2), mostMarks);
  glStencilOp(GL_KEEP, GL_KEEP, GL_REPLACE);
  drawOpaque(group);
  glDisable(GL_STENCIL_TEST);
  glDisable(GL_BLEND);
  drawRibbons(group, opacity);
}

void ScenePass::drawRibbons(std::uint16_t group, float opacity) {
  if (!ribbons_) return;
  ribbons_->draw(group, opacity);
  program_ = nullptr;
}

void ScenePass::drawOpaque(std::uint16_t group) {
  drawOpaqueColors(group);
  drawOpaqueImages(group);
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

void ScenePass::drawOpaqueColors(std::uint16_t group) {
  for (const SceneMesh& mesh : meshes_) {
    const auto parts = mesh.parts();
    for (std::size_t first = 0, end = 0; first < parts.size(); first = end) {
      while (end < parts.size() && parts[end].layer == parts[first].layer) ++end;
      drawLayer(mesh, first, end, group);
    }
  }
}

void ScenePass::drawLayer(const SceneMesh& mesh, std::size_t first, std::size_t end,
                          std::uint16_t group) {
  const auto choose = [&](std::size_t i) {
    const PartLook& look = mesh.looks[first + i];
    if (!isOpaque(look, group) || look.image) return Choice::leave;
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
void ScenePass::drawOpaqueImages(std::uint16_t group) {
  const auto isOpaqueImage = [group](const PartLook& look) {
    return isOpaque(look, group) && look.image;
  };
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
  foundation::stableSort(places.begin(), places.end(),
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

void ScenePass::setLayer(const SceneMesh& mesh, std::size_t part) {
  setDepthLayer(mesh.raised + mesh.parts()[part].layer);
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
