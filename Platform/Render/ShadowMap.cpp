#include "Platform/Render/ShadowMap.hpp"

#include <algorithm>
#include <glm/ext/matrix_clip_space.hpp>
#include <glm/ext/matrix_transform.hpp>
#include <glm/matrix.hpp>
#include <initializer_list>
#include <utility>

namespace orivanta::render {

namespace {

using graphics::Box;
using graphics::Matrix4;
using graphics::Vector3;

bool casts(const PartLook& look) { return look.visible && look.castsShadow && !look.translucent; }

// Only the rotation, so that the map does not depend on the light's position.
Matrix4 sceneToLight(const Matrix4& lightWorld) {
  Matrix4 turn = lightWorld;
  turn[3] = {0, 0, 0, 1};
  return glm::transpose(turn);
}

// The longer side of the map, in scene units.
float extentOf(const Box& box) {
  return std::max({box.max.x - box.min.x, box.max.y - box.min.y, 1e-3F});
}

// The smallest size with `wanted` texels per side. The size shrinks only with some reserve, so that
// small camera movements do not redraw the map.
int sideFor(float wanted, int now) {
  constexpr int least = 1024;
  const int most = std::min(4096, gl::parameter(GL_MAX_TEXTURE_SIZE));
  int side = least;
  while (side < most && static_cast<float>(side) < wanted * (side < now ? 1.5F : 1.0F)) side *= 2;
  return side;
}

}  // namespace

bool ShadowMap::update(const Matrix4& lightWorld, std::span<const SceneMesh> meshes,
                       float unitsPerPixel, MeshShaders& shaders, FrameStatistics& statistics) {
  const bool isSameLight = std::exchange(lightWorld_, lightWorld) == lightWorld;
  std::vector<Caster> casters;
  for (const SceneMesh& mesh : meshes) {
    Caster caster = makeCaster(mesh);
    if (!caster.runs.fronts.empty() || !caster.runs.bothSides.empty())
      casters.push_back(std::move(caster));
  }
  const bool isSame = casters == casters_ && isSameLight;
  if (!isSame) {
    casters_ = std::move(casters);
    findBox(meshes);
  }
  if (box_.isEmpty()) return false;
  const int side = sideFor(extentOf(box_) / unitsPerPixel, side_);
  if (isSame && side == side_) return true;
  if (side != side_) resize(side);
  fit();
  draw(shaders, statistics);
  return true;
}

void ShadowMap::resize(int side) {
  side_ = side;
  depth_ = {};
  glActiveTexture(GL_TEXTURE0 + meshUnits::shadow);
  glBindTexture(GL_TEXTURE_2D, depth_.get());
  glTexStorage2D(GL_TEXTURE_2D, 1, GL_DEPTH_COMPONENT24, side, side);
  for (const GLenum filter :
       std::initializer_list<GLenum>{GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
    glTexParameteri(GL_TEXTURE_2D, filter, GL_LINEAR);
  for (const GLenum wrap : std::initializer_list<GLenum>{GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T})
    glTexParameteri(GL_TEXTURE_2D, wrap, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_MODE, GL_COMPARE_REF_TO_TEXTURE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_FUNC, GL_LEQUAL);
  glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_.get());
  glFramebufferTexture2D(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, depth_.get(), 0);
}

ShadowMap::Caster ShadowMap::makeCaster(const SceneMesh& mesh) const {
  const bool isFromAbove = (glm::transpose(mesh.world) * lightWorld_[2]).z > 0;
  return {
      mesh.mesh, mesh.mesh->revision(), mesh.world,
      chooseSidedRuns(
          mesh.parts(),
          [&](std::size_t part) { return casts(mesh.looks[part]) ? Choice::draw : Choice::leave; },
          [&](std::size_t part) { return isFromAbove && mesh.parts()[part].isShell; })};
}

void ShadowMap::findBox(std::span<const SceneMesh> meshes) {
  const Matrix4 toLight = sceneToLight(lightWorld_);
  box_ = {};
  for (const SceneMesh& mesh : meshes) {
    const Matrix4 meshToLight = toLight * mesh.world;
    for (std::size_t i = 0; i < mesh.looks.size(); ++i)
      if (casts(mesh.looks[i])) box_.add(transformed(mesh.parts()[i].box, meshToLight));
  }
}

// Adds a margin of a few texels, and some depth for flat scenes.
void ShadowMap::fit() {
  const float texel = extentOf(box_) / static_cast<float>(side_);
  const float depthMargin = 4 * texel + (box_.max.z - box_.min.z) * 0.01F;
  const Vector3 margin{4 * texel, 4 * texel, depthMargin};
  const Vector3 min = box_.min - margin;
  const Vector3 max = box_.max + margin;
  sceneToClip_ = glm::ortho(min.x, max.x, min.y, max.y, -max.z, -min.z) * sceneToLight(lightWorld_);
  const Matrix4 halve = glm::scale(Matrix4(1.0F), Vector3(0.5F));
  sceneToMap_ = glm::translate(Matrix4(1.0F), Vector3(0.5F)) * halve * sceneToClip_;
  offset_ = 1.5F * texel;
}

void ShadowMap::draw(MeshShaders& shaders, FrameStatistics& statistics) const {
  glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_.get());
  glViewport(0, 0, side_, side_);
  glDisable(GL_BLEND);
  glEnable(GL_DEPTH_TEST);
  glDepthMask(GL_TRUE);
  glClear(GL_DEPTH_BUFFER_BIT);
  glEnable(GL_POLYGON_OFFSET_FILL);
  glPolygonOffset(1.5F, 4.0F);
  const DepthProgram& depth = shaders.depth();
  depth.program.use();
  for (const Caster& caster : casters_) {
    caster.mesh->bind();
    depth.program.set(depth.meshToClip, sceneToClip_ * caster.world);
    glEnable(GL_CULL_FACE);
    Mesh::draw(caster.runs.fronts, statistics);
    glDisable(GL_CULL_FACE);
    Mesh::draw(caster.runs.bothSides, statistics);
  }
  glDisable(GL_POLYGON_OFFSET_FILL);
  ++statistics.shadowMapsDrawn;
  statistics.shadowMapSide = side_;
}

void ShadowMap::bind(GLint unit) const {
  glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
  glBindTexture(GL_TEXTURE_2D, depth_.get());
}

}  // namespace orivanta::render
