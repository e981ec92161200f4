// The programs that draw meshes.
#pragma once

#include <map>
#include <memory>
#include <tuple>

#include "Platform/Render/Program.hpp"

namespace orivanta::render {

/// What a program is made for.
struct MeshFeatures {
  bool textured = false;
  bool shadowed = false;    ///< the first light casts shadows
  bool frontAlone = false;  ///< faces from behind are not drawn, and all lights are far away
  int lights = 0;           ///< besides the ambient one
  friend bool operator<(const MeshFeatures& a, const MeshFeatures& b) {
    return std::tie(a.textured, a.shadowed, a.frontAlone, a.lights) <
           std::tie(b.textured, b.shadowed, b.frontAlone, b.lights);
  }
};

/// Lit surfaces. Lights are handed over in the camera's space.
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
  GLint shadowTexel;
};

/// Depth alone, for the shadow map.
struct DepthProgram {
  DepthProgram();

  Program program;
  GLint meshToClip;
};

/// Made when they are first asked for.
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
