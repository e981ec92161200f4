// The shader programs for meshes.
#pragma once

#include <map>
#include <memory>
#include <tuple>

#include "Platform/Render/Program.hpp"

namespace orivanta::render {

/// The variant of a program.
struct MeshFeatures {
  bool textured = false;
  bool shadowed = false;    ///< the first light casts shadows
  bool frontAlone = false;  ///< back faces are not drawn, and all lights are distant
  int lights = 0;           ///< not counting ambient light
  friend bool operator<(const MeshFeatures& a, const MeshFeatures& b) {
    return std::tie(a.textured, a.shadowed, a.frontAlone, a.lights) <
           std::tie(b.textured, b.shadowed, b.frontAlone, b.lights);
  }
};

/// The program for lit surfaces. Lights are specified in the camera's space.
struct MeshProgram {
  static constexpr int mostLights = 8;

  explicit MeshProgram(const MeshFeatures& features);

  Program program;
  GLint meshToView;
  GLint viewToClip;
  GLint ambient;
  GLint lightPlaces;
  GLint lightDirections;
  GLint lightColors;
  GLint viewToShadow;
  GLint shadowOffset;
  GLint unshadowed;
  GLint shadowTexel;
};

/// The program for the shadow map, which writes only depth.
struct DepthProgram {
  DepthProgram();

  Program program;
  GLint meshToClip;
};

/// Programs are created when they are first used.
class MeshShaders {
 public:
  const MeshProgram& lit(const MeshFeatures& features);
  const DepthProgram& depth();

 private:
  std::map<MeshFeatures, MeshProgram> lit_;
  std::unique_ptr<DepthProgram> depth_;
};

/// Texture units.
namespace meshUnits {
inline constexpr GLint colors = 0;
inline constexpr GLint placements = 1;
inline constexpr GLint image = 2;
inline constexpr GLint shadow = 3;
}  // namespace meshUnits

}  // namespace orivanta::render
