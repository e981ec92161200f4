#include "Platform/Render/MeshShaders.hpp"

#include <fmt/core.h>

#include "Platform/Render/Mesh.hpp"

namespace orivanta::render {

namespace {

// Lights are specified in the camera's space.
constexpr std::string_view lights = R"(
uniform vec3 ambient;
#if LIGHTS > 0
uniform vec4 lightPlaces[LIGHTS];      // a position and 1, or the direction to the light and 0
uniform vec4 lightDirections[LIGHTS];  // direction of the cone; cosine at its outer edge
uniform vec4 lightColors[LIGHTS];      // color; cosine at the inner edge of the cone
#endif
uniform mat4 viewToShadow;
uniform float shadowOffset;
uniform float unshadowed;  // fraction of the first light that shadows do not remove

vec3 shadowPoint(vec3 viewPoint, vec3 normal) {
  return (viewToShadow * vec4(viewPoint + normal * shadowOffset, 1.0)).xyz;
}
)";

// For faces drawn from the front only, with distant lights, light is computed at the corners,
// except for shadows.
constexpr std::string_view litVertex = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 textureCoordinate;
layout(location = 3) in uint part;
uniform mat4 meshToView;
uniform mat4 viewToClip;
uniform sampler2D partColors;
uniform sampler2D partPlacements;
out vec2 imagePoint;
flat out vec4 partColor;
#ifdef FRONT_ALONE
out vec3 steadyLight;
out vec3 placeInShadow;
out float castShare;
#else
out vec3 viewPosition;
out vec3 viewNormal;
#endif

void main() {
  vec4 viewPoint = meshToView * vec4(position, 1.0);
  vec3 n = mat3(meshToView) * normal;
#ifdef FRONT_ALONE
  steadyLight = ambient;
  castShare = 0.0;
#ifdef SHADOWED
  castShare = dot(n, lightPlaces[0].xyz);
  placeInShadow = shadowPoint(viewPoint.xyz, n);
#endif
#if LIGHTS > FIRST_STEADY
  for (int i = FIRST_STEADY; i < LIGHTS; ++i)
    steadyLight += max(dot(n, lightPlaces[i].xyz), 0.0) * lightColors[i].rgb;
#endif
#else
  viewPosition = viewPoint.xyz;
  viewNormal = n;
#endif
  ivec2 place = ivec2(int(part) % PARTS_PER_ROW, int(part) / PARTS_PER_ROW);
  partColor = texelFetch(partColors, place, 0);
#ifdef TEXTURED
  vec4 point = vec4(textureCoordinate, 0.0, 1.0);
  imagePoint = vec2(dot(texelFetch(partPlacements, ivec2(2 * place.x, place.y), 0), point),
                    dot(texelFetch(partPlacements, ivec2(2 * place.x + 1, place.y), 0), point));
#endif
  gl_Position = viewToClip * viewPoint;
}
)";

// Diffuse reflection (Lambert) in linear space. Light is limited to full brightness, so that a
// fully lit color is shown unchanged. The output is encoded as sRGB here, once for all samples of a
// pixel.
constexpr std::string_view litFragment = R"(
in vec2 imagePoint;
flat in vec4 partColor;
uniform sampler2D image;
uniform sampler2DShadow shadowMap;
uniform float shadowTexel;
out vec4 color;

// Four filtered comparisons, half a texel off the center, give a soft edge over 3 by 3 texels.
// Points outside the map read its margin, which contains no shadow casters.
float lightThroughShadow(vec3 p) {
  float h = 0.5 * shadowTexel;
  float open = 0.25 * (texture(shadowMap, p + vec3(-h, -h, 0.0)) + texture(shadowMap, p + vec3(h, -h, 0.0)) +
                       texture(shadowMap, p + vec3(-h, h, 0.0)) + texture(shadowMap, p + vec3(h, h, 0.0)));
  return mix(unshadowed, 1.0, open);
}

#ifdef FRONT_ALONE
in vec3 steadyLight;
in vec3 placeInShadow;
in float castShare;

vec3 incomingLight() {
#ifdef SHADOWED
  vec3 light = steadyLight + max(castShare, 0.0) * lightThroughShadow(placeInShadow) * lightColors[0].rgb;
  return clamp(light, 0.0, 1.0);
#else
  return clamp(steadyLight, 0.0, 1.0);
#endif
}
#else
in vec3 viewPosition;
in vec3 viewNormal;

// Turns the normal toward the viewer. A missing normal is replaced by the triangle's.
vec3 surfaceNormal() {
  vec3 n = dot(viewNormal, viewNormal) > 0.25
      ? viewNormal : cross(dFdx(viewPosition), dFdy(viewPosition));
  return normalize(dot(n, viewPosition) > 0.0 ? -n : n);
}

vec3 incomingLight() {
  vec3 sum = ambient;
#if LIGHTS > 0
  vec3 n = surfaceNormal();
  for (int i = 0; i < LIGHTS; ++i) {
    vec3 way = lightPlaces[i].xyz;
    if (lightPlaces[i].w > 0.0) way = normalize(way - viewPosition);
    float share = dot(n, way);
    if (share <= 0.0) continue;
    if (lightPlaces[i].w > 0.0)
      share *= smoothstep(lightDirections[i].w, lightColors[i].w, -dot(way, lightDirections[i].xyz));
#ifdef SHADOWED
    if (i == 0) share *= lightThroughShadow(shadowPoint(viewPosition, n));
#endif
    sum += share * lightColors[i].rgb;
  }
#endif
  return clamp(sum, 0.0, 1.0);
}
#endif

// Approximates the sRGB curve to within a tenth of a step of 255, without the expensive power.
vec3 encode(vec3 linear) {
  vec3 root = sqrt(linear);
  vec3 curve = -0.076901 + 0.833779 * root + 0.298092 * sqrt(root) - 0.055331 * linear;
  return mix(curve, linear * 12.92, lessThanEqual(linear, vec3(0.0031308)));
}

void main() {
#ifdef TEXTURED
  vec4 surface = texture(image, imagePoint);
  float alpha = surface.a * partColor.a;
  vec3 reflecting = surface.rgb / max(surface.a, 1.0 / 255.0);
#else
  float alpha = partColor.a;
  vec3 reflecting = partColor.rgb;
#endif
  color = vec4(encode(reflecting * incomingLight()) * alpha, alpha);
}
)";

constexpr std::string_view depthVertex = R"(
layout(location = 0) in vec3 position;
uniform mat4 meshToClip;

void main() { gl_Position = meshToClip * vec4(position, 1.0); }
)";

constexpr std::string_view depthFragment = "void main() {}\n";

std::string definitionsFor(const MeshFeatures& features) {
  return fmt::format("{}{}{}#define LIGHTS {}\n#define FIRST_STEADY {}\n#define PARTS_PER_ROW {}\n",
                     features.textured ? "#define TEXTURED\n" : "",
                     features.shadowed ? "#define SHADOWED\n" : "",
                     features.frontAlone ? "#define FRONT_ALONE\n" : "", features.lights,
                     features.shadowed ? 1 : 0, Mesh::partsPerRow);
}

}  // namespace

MeshProgram::MeshProgram(const MeshFeatures& features)
    : program(definitionsFor(features) + std::string(lights), litVertex, litFragment),
      meshToView(program.uniform("meshToView")),
      viewToClip(program.uniform("viewToClip")),
      ambient(program.uniform("ambient")),
      lightPlaces(program.uniform("lightPlaces")),
      lightDirections(program.uniform("lightDirections")),
      lightColors(program.uniform("lightColors")),
      viewToShadow(program.uniform("viewToShadow")),
      shadowOffset(program.uniform("shadowOffset")),
      unshadowed(program.uniform("unshadowed")),
      shadowTexel(program.uniform("shadowTexel")) {
  program.setSampler("partColors", meshUnits::colors);
  program.setSampler("partPlacements", meshUnits::placements);
  program.setSampler("image", meshUnits::image);
  program.setSampler("shadowMap", meshUnits::shadow);
}

DepthProgram::DepthProgram()
    : program("", depthVertex, depthFragment), meshToClip(program.uniform("meshToClip")) {}

const MeshProgram& MeshShaders::lit(const MeshFeatures& features) {
  return lit_.try_emplace(features, features).first->second;
}

const DepthProgram& MeshShaders::depth() {
  if (!depth_) depth_ = std::make_unique<DepthProgram>();
  return *depth_;
}

}  // namespace orivanta::render
