// The shader programs for ribbons.
#pragma once

#include <memory>

#include "Platform/Render/Program.hpp"

namespace orivanta::render {

/// The program for plain lines or for routes.
struct RibbonProgram {
  explicit RibbonProgram(bool isRoute);

  Program program;
  GLint meshToView;
  GLint viewToClip;
  GLint halfPicture;  ///< half the width and the height of the picture in pixels
  GLint pixelsPerPoint;
  GLint opacity;
  GLint casing;       ///< for routes: sRGB
  GLint passed;       ///< for routes: sRGB
  GLint casingWidth;  ///< for routes: points; 0 otherwise
  GLint passedTo;     ///< for routes: distance
  GLint arrows;       ///< for routes: spacing and phase
  GLint layer;        ///< for routes: -1 for the casing, 1 for the rest, 0 for both
};

/// Programs are created when they are first used.
class RibbonShaders {
 public:
  const RibbonProgram& plain() { return get(plain_, false); }
  const RibbonProgram& route() { return get(route_, true); }

 private:
  static const RibbonProgram& get(std::unique_ptr<RibbonProgram>& program, bool isRoute) {
    if (!program) program = std::make_unique<RibbonProgram>(isRoute);
    return *program;
  }

  std::unique_ptr<RibbonProgram> plain_;
  std::unique_ptr<RibbonProgram> route_;
};

/// Texture units.
namespace ribbonUnits {
inline constexpr GLint palette = 0;
}  // namespace ribbonUnits

}  // namespace orivanta::render
