#include "Platform/Render/RibbonShaders.hpp"

#include <utility>

namespace orivanta::render {

namespace {

// A ribbon is widened in the level plane instead of on the screen, so that its depth is exactly
// that of the surface on which it lies. `s` is the distance in the plane that appears as half the
// width beside an edge. Along an edge, it is proportional to w. An edge is therefore cut in front
// of the camera, behind which w is negative.
constexpr std::string_view vertexSource = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec4 directions;  // of the edges before and after the corner
layout(location = 2) in float distanceAlong;
layout(location = 3) in ivec4 corner;     // color, side, end, across
uniform mat4 meshToView;
uniform mat4 viewToClip;
uniform vec2 halfPicture;
uniform float pixelsPerPoint;
uniform float casingWidth;
uniform sampler2D palette;
flat out vec4 tint;
flat out float reach;  // half the width in pixels, with the casing
out float across;      // pixels from the middle
out float way;         // distance along the ribbon

const float longestMiter = 3.0;     // in halves of the width
const float leastSine = 1.0 / 8.0;  // of the angle at which a plane is seen

// x and y in pixels times w, and w.
vec3 onScreen(vec4 place) {
  vec4 clip = viewToClip * (meshToView * place);
  return vec3(clip.xy * halfPicture, clip.w);
}

vec2 leftOf(vec2 direction) { return vec2(-direction.y, direction.x); }

// w * w times the change of the point on the screen, for movement along a direction.
vec2 movement(vec3 at, vec2 direction) {
  vec3 change = onScreen(vec4(direction, 0.0, 0.0));
  return change.xy * at.z - at.xy * change.z;
}

float halfWidth(vec3 at, vec2 direction, float plane) {
  return reach * length(movement(at, direction)) * at.z / plane;
}

// The vector whose products with the normals of both edges are s.x and s.y.
vec2 miter(vec2 before, vec2 after, vec2 s) {
  vec2 n = leftOf(before);
  vec2 m = leftOf(after);
  float turn = before.x * after.y - before.y * after.x;
  vec2 x = abs(turn) < 0.02 ? 0.5 * (n * s.x + m * s.y)
                            : vec2(s.x * m.y - s.y * n.y, n.x * s.y - m.x * s.x) / turn;
  float longest = longestMiter * max(abs(s.x), abs(s.y));
  return x * min(1.0, longest / max(length(x), 1e-9));
}

void main() {
  int color = corner.x & 255;
  float side = float(corner.y) / 127.0;
  tint = texelFetch(palette, ivec2(color, 0), 0);
  vec2 width = texelFetch(palette, ivec2(color, 1), 0).rg * 255.0;
  reach = tint.a > 0.0 ? (0.5 * (width.x + 256.0 * width.y) / 16.0 + casingWidth) * pixelsPerPoint : 0.0;

  vec2 before = directions.xy;
  vec2 after = directions.zw;
  vec2 own = corner.z < 0 ? after : before;
  float nearest = viewToClip[3][2] / (viewToClip[2][2] - 1.0);
  vec3 at = onScreen(vec4(position, 1.0));
  vec3 change = onScreen(vec4(own, 0.0, 0.0));
  float slide = 0.0;  // along the edge to the near plane
  if (at.z < nearest && abs(corner.z) == 1 && change.z * float(corner.z) < 0.0) {
    slide = (nearest - at.z) / change.z;
    at += slide * change;
    before = after = own;
  }
  float scale = viewToClip[0][0] * halfPicture.x * viewToClip[1][1] * halfPicture.y;
  // The product of `scale` and the camera's distance from the plane. It is the same in the whole plane.
  float plane = abs(determinant(mat3(at, onScreen(vec4(1.0, 0.0, 0.0, 0.0)), onScreen(vec4(0.0, 1.0, 0.0, 0.0)))));
  plane = max(plane, scale * nearest * leastSine);
  vec2 s = vec2(halfWidth(at, before, plane), halfWidth(at, after, plane));
  vec2 shift = own * slide + miter(before, after, s) * side;
  way = distanceAlong + (abs(corner.z) == 2 ? 0.0 : dot(shift, own));
  across = float(corner.w) / 127.0;
  if (abs(corner.z) == 2) {
    float pace = max(length(movement(at, own)), abs(at.z) * sqrt(scale) * leastSine);
    float share = sign(float(corner.z)) * abs(across) * sqrt(max(1.0 - side * side, 0.0));
    shift += own * (share * reach * at.z * at.z / pace);
  }
  across *= reach;
  gl_Position = viewToClip * (meshToView * vec4(position + vec3(shift, 0.0), 1.0));
}
)";

constexpr std::string_view fragmentSource = R"(
flat in vec4 tint;
flat in float reach;
in float across;
in float way;
uniform float pixelsPerPoint;
uniform float opacity;
uniform vec3 casing;
uniform vec3 passed;
uniform float casingWidth;
uniform float passedTo;
uniform vec2 arrows;  // spacing and phase
uniform float layer;  // of a route: -1 for the casing, 1 for what is inside of it, 0 for both
out vec4 color;

// How much of a pixel lies inside of an edge at a distance in pixels, which is negative inside.
float covered(float beyond) { return clamp(0.5 - beyond, 0.0, 1.0); }

#ifdef ROUTE
// An arrowhead of two strokes that points onward and fills the line between the casings.
float arrowAt(float middle, float reachInside, float unitsPerPixel) {
  float place = mod(way - arrows.y + 0.5 * arrows.x, arrows.x) - 0.5 * arrows.x;
  float behind = place / unitsPerPixel + middle - 0.4 * reachInside;
  return covered(0.7071 * abs(behind) - 0.22 * reachInside) * covered(middle - 0.7 * reachInside);
}

// The distance does not change in round ends, which have no arrows.
vec4 routeColor() {
  if (layer < 0.0) return vec4(casing, 1.0);
  float middle = abs(across);
  float reachInside = reach - casingWidth * pixelsPerPoint;
  float unitsPerPixel = max(length(vec2(dFdx(way), dFdy(way))), 1e-9);
  bool isEnd = unitsPerPixel < 1e-8;
  float ahead = isEnd ? step(passedTo, way) : covered((passedTo - way) / unitsPerPixel);
  vec3 inside = mix(passed, tint.rgb, ahead);
  if (arrows.x > 0.0 && !isEnd)
    inside = mix(inside, casing, ahead * arrowAt(middle, reachInside, unitsPerPixel));
  float share = covered(middle - reachInside);
  return layer > 0.0 ? vec4(inside, share) : vec4(mix(casing, inside, share), 1.0);
}
#endif

void main() {
#ifdef ROUTE
  vec4 shown = routeColor();
#else
  vec4 shown = vec4(tint.rgb, 1.0);
#endif
  float alpha = shown.a * tint.a * opacity;
  color = vec4(shown.rgb * alpha, alpha);
}
)";

}  // namespace

std::unique_ptr<Compilation> RibbonProgram::start(bool isRoute) {
  return std::make_unique<Compilation>(isRoute ? "#define ROUTE\n" : "", vertexSource,
                                       fragmentSource);
}

RibbonProgram::RibbonProgram(Compilation&& compilation)
    : program(std::move(compilation)),
      meshToView(program.uniform("meshToView")),
      viewToClip(program.uniform("viewToClip")),
      halfPicture(program.uniform("halfPicture")),
      pixelsPerPoint(program.uniform("pixelsPerPoint")),
      opacity(program.uniform("opacity")),
      casing(program.uniform("casing")),
      passed(program.uniform("passed")),
      casingWidth(program.uniform("casingWidth")),
      passedTo(program.uniform("passedTo")),
      arrows(program.uniform("arrows")),
      layer(program.uniform("layer")) {
  program.setSampler("palette", ribbonUnits::palette);
}

const RibbonProgram& RibbonShaders::Variant::get() {
  if (!compilation && !program) compilation = RibbonProgram::start(isRoute);
  if (compilation) {
    program = std::make_unique<RibbonProgram>(std::move(*compilation));
    compilation = nullptr;
  }
  return *program;
}

}  // namespace orivanta::render
