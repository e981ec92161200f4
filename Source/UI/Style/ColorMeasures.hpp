// Measures of how well people can tell colors apart.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"

namespace orivanta {

/// How a person sees colors.
enum class ColorVision {
  normal,       ///< with three kinds of cones
  protanope,    ///< without cones for long wavelengths
  deuteranope,  ///< without cones for medium wavelengths
  tritanope     ///< without cones for short wavelengths
};

/// Returns the relative luminance of a color as WCAG 2 defines it, from 0 (black) to 1 (white).
/// Like the other functions, ignores the alpha.
ORIVANTA_API double luminanceOf(const graphics::Color& color);

/// Returns the contrast of two colors as WCAG 2 defines it, from 1 (equal) to 21.
ORIVANTA_API double contrastOf(const graphics::Color& first, const graphics::Color& second);

/// Returns the CIEDE2000 distance of two colors (D65). Distances below 1 are hardly visible.
/// Source: Sharma, Wu, Dalal, "The CIEDE2000 Color-Difference Formula", 2005.
ORIVANTA_API double distanceOf(const graphics::Color& first, const graphics::Color& second);

/// Returns the color that a person with normal vision sees as another person sees `color`.
/// Source: Machado, Oliveira, Fernandes, "A Physiologically-based Model for Simulation of Color
/// Vision Deficiency", 2009, with the severity 1.
ORIVANTA_API graphics::Color asSeen(const graphics::Color& color, ColorVision vision);

/// Mixes two colors in linear light. `share` is that of the second one, from 0 to 1.
ORIVANTA_API graphics::Color mixedInLight(const graphics::Color& first,
                                          const graphics::Color& second, double share);

/// Mixes as much of `ink` into `fill`, in linear light, as is necessary for a contrast with `fill`.
/// Returns `ink` if that is not sufficient.
ORIVANTA_API graphics::Color mixedToContrast(const graphics::Color& fill,
                                             const graphics::Color& ink, double contrast);

}  // namespace orivanta
