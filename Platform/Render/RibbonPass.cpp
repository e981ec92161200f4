#include "Platform/Render/RibbonPass.hpp"

#include <algorithm>
#include <glm/gtc/matrix_transform.hpp>

#include "Platform/Render/DepthLayer.hpp"
#include "Platform/Render/Mesh.hpp"

namespace orivanta::render {

namespace {

// See the uniform of the shader.
constexpr float casingLayer = -1;
constexpr float lineLayer = 1;
constexpr float allLayers = 0;

float widestOf(const scene::RibbonLook& look) {
  float widest = 0;
  for (const auto& [color, width] : look.colors) widest = std::max(widest, width);
  return look.route ? widest + 2 * look.route->casingWidth : widest;
}

// Blending each sample costs software drivers much of their time for outlines.
bool needsBlending(const scene::RibbonLook& look, float opacity) {
  return opacity < 1 || look.route ||
         std::any_of(look.colors.begin(), look.colors.end(), [](const scene::RibbonColor& each) {
           return each.color.alpha > 0 && each.color.alpha < 1;
         });
}

graphics::Vector3 rgbOf(const graphics::Color& color) {
  return {color.red, color.green, color.blue};
}

}  // namespace

RibbonPass::RibbonPass(const RibbonSight& sight, std::span<const SceneRibbons> ribbons,
                       RibbonShaders& shaders, FrameStatistics& statistics)
    : sight_(sight), ribbons_(ribbons), shaders_(shaders), statistics_(statistics) {}

void RibbonPass::draw(std::uint16_t group, float opacity) { drawAll(group, opacity, true); }

void RibbonPass::drawDepth(std::uint16_t group) { drawAll(group, 1.0F, false); }

void RibbonPass::drawAll(std::uint16_t group, float opacity, bool withHiddenParts) {
  glDisable(GL_CULL_FACE);
  glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  for (const bool isRoute : {false, true})
    for (const SceneRibbons& each : ribbons_) {
      if (each.seen->group != group || each.seen->look.route.has_value() != isRoute) continue;
      needsBlending(each.seen->look, opacity) ? glEnable(GL_BLEND) : glDisable(GL_BLEND);
      if (isRoute && withHiddenParts) drawHidden(each, opacity);
      // So that the casing of a sharp corner does not cross the line. Translucent layers would add.
      const bool hasLayers = isRoute && withHiddenParts && opacity >= 1;
      if (hasLayers) drawTriangles(each, opacity, casingLayer);
      drawTriangles(each, opacity, hasLayers ? lineLayer : allLayers);
    }
  glDisable(GL_BLEND);
}

// Marks each sample that it draws, so that overlapping parts of a ribbon are blended once.
void RibbonPass::drawHidden(const SceneRibbons& ribbons, float opacity) {
  constexpr int mostMarks = 255;
  marks_ = marks_ % mostMarks + 1;
  glEnable(GL_STENCIL_TEST);
  glStencilFunc(GL_NOTEQUAL, marks_, mostMarks);
  glStencilOp(GL_KEEP, GL_KEEP, GL_REPLACE);
  glDepthFunc(GL_GREATER);
  glDepthMask(GL_FALSE);
  drawTriangles(ribbons, opacity * std::clamp(ribbons.seen->look.route->hiddenAlpha, 0.0F, 1.0F),
                allLayers);
  glDepthMask(GL_TRUE);
  glDepthFunc(GL_LEQUAL);
  glDisable(GL_STENCIL_TEST);
}

void RibbonPass::drawTriangles(const SceneRibbons& ribbons, float opacity, float layer) {
  const RibbonsInScene& seen = *ribbons.seen;
  // Points just outside of the picture may belong to ribbons that reach into it.
  const float margin = 4 * widestOf(seen.look) * sight_.pixelsPerPoint;
  const graphics::Vector3 shrunk{sight_.width / (sight_.width + margin),
                                 sight_.height / (sight_.height + margin), 1};
  const Frustum frustum(glm::scale(graphics::Matrix4(1.0F), shrunk) * sight_.projection *
                        sight_.view * seen.world);
  const auto parts = ribbons.mesh->parts();
  const auto runs = chooseRuns(parts, [&](std::size_t part) {
    return frustum.sees(parts[part].box) ? Choice::draw : Choice::allow;
  });
  if (runs.empty()) return;
  const RibbonProgram& program = seen.look.route ? shaders_.route() : shaders_.plain();
  program.program.use();
  setUniforms(program, seen, opacity);
  if (seen.look.route) program.program.set(program.layer, layer);
  setDepthLayer(sight_.layer + (seen.look.route ? 1 : 0));
  ribbons.mesh->bind(seen.look.colors, statistics_);
  Mesh::draw(runs, statistics_);
}

void RibbonPass::setUniforms(const RibbonProgram& program, const RibbonsInScene& seen,
                             float opacity) const {
  const Program& target = program.program;
  target.set(program.meshToView, sight_.view * seen.world);
  target.set(program.viewToClip, sight_.projection);
  target.set(program.halfPicture, sight_.width / 2, sight_.height / 2);
  target.set(program.pixelsPerPoint, sight_.pixelsPerPoint);
  target.set(program.opacity, opacity);
  target.set(program.casingWidth, seen.look.route ? seen.look.route->casingWidth : 0.0F);
  if (!seen.look.route) return;
  target.set(program.casing, rgbOf(seen.look.route->casing));
  target.set(program.passed, rgbOf(seen.look.route->passed));
  target.set(program.passedTo, seen.look.route->passedTo);
  target.set(program.arrows, seen.look.route->arrowSpacing, seen.look.route->arrowPhase);
}

}  // namespace orivanta::render
