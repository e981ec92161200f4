// The functions that the page defines for texts and vector drawings, in PageFunctions.js. They draw
// on a 2D canvas.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "Platform/Graphics/Image.hpp"

extern "C" {

/// Sets the width and the height of the lines of a text, in points. `numbers`: see `numbersOf` in
/// Text.cpp. Returns 0 if there is no canvas.
int orivantaMeasureText(const char* text, std::size_t bytes, const char* family,
                        std::size_t familyBytes, const double* numbers, double* size);

/// Draws a text and sets the width and the height of its picture, in pixels. Returns 0 if there is
/// no picture.
int orivantaDrawText(const char* text, std::size_t bytes, const char* family,
                     std::size_t familyBytes, const double* numbers, std::uint32_t* size);

/// Draws paths into a square picture with `side` pixels. `numbers`: see `pack` in Drawing.cpp;
/// `scale`: pixels per unit. Returns 0 if there is no picture.
int orivantaDrawPaths(const double* numbers, std::size_t count, std::uint32_t side, double scale);

/// Writes the pixels of the last picture in the format of `Image`, and releases it.
void orivantaTakePixels(std::uint8_t* pixels, std::size_t bytes);
}

namespace orivanta::graphics {

/// Returns the last picture as an image. `scale`: pixels per point.
std::shared_ptr<const Image> takeImage(std::uint32_t width, std::uint32_t height, double scale);

}  // namespace orivanta::graphics
