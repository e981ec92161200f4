// The shader programs for ribbons.
#pragma once

#include <memory>

#include "Platform/Render/Program.hpp"

namespace orivanta::render {

/// The program for plain lines or for routes.
struct RibbonProgram {
  /// Starts to compile the program.
  static std::unique_ptr<Compilation> start(bool isRoute);

  explicit RibbonProgram(Compilation&& compilation);

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

/// The program for plain lines is compiled from the beginning, that for routes when it is first
/// used.
class RibbonShaders {
 public:
  const RibbonProgram& plain() { return plain_.get(); }
  const RibbonProgram& route() { return route_.get(); }

 private:
  struct Variant {
    bool isRoute;
    std::unique_ptr<Compilation> compilation;  // until the first use
    std::unique_ptr<RibbonProgram> program = nullptr;

    const RibbonProgram& get();
  };

  Variant plain_{false, RibbonProgram::start(false)};
  Variant route_{true, nullptr};
};

/// Texture units.
namespace ribbonUnits {
inline constexpr GLint palette = 0;
}  // namespace ribbonUnits

}  // namespace orivanta::render
