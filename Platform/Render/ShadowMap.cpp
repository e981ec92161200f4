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

// Only the turn, so that the map does not depend on where the light stands.
Matrix4 sceneToLight(const Matrix4& lightWorld) {
  Matrix4 turn = lightWorld;
  turn[3] = {0, 0, 0, 1};
  return glm::transpose(turn);
}

}  // namespace

Box transformed(const Box& box, const Matrix4& matrix) {
  Box result;
  if (box.isEmpty()) return result;
  for (int corner = 0; corner < 8; ++corner) {
    const Vector3 point{(corner & 1) != 0 ? box.max.x : box.min.x,
                        (corner & 2) != 0 ? box.max.y : box.min.y,
                        (corner & 4) != 0 ? box.max.z : box.min.z};
    result.add(Vector3(matrix * graphics::Vector4(point, 1.0F)));
  }
  return result;
}

ShadowMap::ShadowMap() {
  glActiveTexture(GL_TEXTURE0 + meshUnits::shadow);
  glBindTexture(GL_TEXTURE_2D, depth_.get());
  glTexStorage2D(GL_TEXTURE_2D, 1, GL_DEPTH_COMPONENT24, shadowMapSide, shadowMapSide);
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

bool ShadowMap::update(const Matrix4& lightWorld, std::span<const SceneMesh> meshes,
                       MeshShaders& shaders, FrameStatistics& statistics) {
  const bool isSameLight = std::exchange(lightWorld_, lightWorld) == lightWorld;
  std::vector<Caster> casters;
  for (const SceneMesh& mesh : meshes) {
    Caster caster = makeCaster(mesh);
    if (!caster.runsOfFronts.empty() || !caster.runsOfBothSides.empty())
      casters.push_back(std::move(caster));
  }
  if (casters == casters_ && isSameLight) return hasCasters_;
  casters_ = std::move(casters);
  hasCasters_ = fit(meshes);
  if (hasCasters_) draw(shaders, statistics);
  return hasCasters_;
}

ShadowMap::Caster ShadowMap::makeCaster(const SceneMesh& mesh) const {
  const bool isFromAbove = (glm::transpose(mesh.world) * lightWorld_[2]).z > 0;
  const auto runs = [&](bool frontAlone) {
    return chooseRuns(mesh.parts(), [&](std::size_t part) {
      const bool isChosen =
          casts(mesh.looks[part]) && (isFromAbove && mesh.parts()[part].isShell) == frontAlone;
      return isChosen ? Choice::draw : Choice::leave;
    });
  };
  return {mesh.mesh, mesh.mesh->revision(), mesh.world, runs(true), runs(false)};
}

bool ShadowMap::fit(std::span<const SceneMesh> meshes) {
  const Matrix4 toLight = sceneToLight(lightWorld_);
  Box box;
  for (const SceneMesh& mesh : meshes) {
    const Matrix4 meshToLight = toLight * mesh.world;
    for (std::size_t i = 0; i < mesh.looks.size(); ++i)
      if (casts(mesh.looks[i])) box.add(transformed(mesh.parts()[i].box, meshToLight));
  }
  if (box.isEmpty()) return false;

  // A margin of a few texels, and of some depth for flat scenes.
  const Vector3 size = box.max - box.min;
  const float side = std::max({size.x, size.y, 1e-3F});
  const float texel = side / static_cast<float>(shadowMapSide);
  const float depthMargin = 4 * texel + size.z * 0.01F;
  const Vector3 margin{4 * texel, 4 * texel, depthMargin};
  box.add(box.min - margin);
  box.add(box.max + margin);
  sceneToClip_ =
      glm::ortho(box.min.x, box.max.x, box.min.y, box.max.y, -box.max.z, -box.min.z) * toLight;
  const Matrix4 halve = glm::scale(Matrix4(1.0F), Vector3(0.5F));
  sceneToMap_ = glm::translate(Matrix4(1.0F), Vector3(0.5F)) * halve * sceneToClip_;
  offset_ = 1.5F * texel;
  return true;
}

void ShadowMap::draw(MeshShaders& shaders, FrameStatistics& statistics) const {
  glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_.get());
  glViewport(0, 0, shadowMapSide, shadowMapSide);
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
    Mesh::draw(caster.runsOfFronts, statistics);
    glDisable(GL_CULL_FACE);
    Mesh::draw(caster.runsOfBothSides, statistics);
  }
  glDisable(GL_POLYGON_OFFSET_FILL);
  ++statistics.shadowMapsDrawn;
}

void ShadowMap::bind(GLint unit) const {
  glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
  glBindTexture(GL_TEXTURE_2D, depth_.get());
}

}  // namespace orivanta::render
