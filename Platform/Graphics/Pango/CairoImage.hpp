// Converts what Cairo has drawn to an image.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace orivanta::graphics {

/// Releases objects of Cairo.
struct ReleaseCairo {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};

/// Reads the pixels of an image surface in the format CAIRO_FORMAT_ARGB32: 32-bit integers with
/// alpha in the highest byte and premultiplied colors. Valid as long as the surface exists.
class CairoPixels {
 public:
  explicit CairoPixels(cairo_surface_t* surface)
      : data_(cairo_image_surface_get_data(surface)),
        rowBytes_(cairo_image_surface_get_stride(surface)) {}

  /// The pixel in a column and a row, which must exist.
  std::uint32_t at(int x, int y) const;

  /// A rectangle in the format of `Image`. It must be inside the surface.
  std::vector<std::uint8_t> straightRgba(int left, int top, int width, int height) const;

 private:
  const unsigned char* data_;
  int rowBytes_;
};

}  // namespace orivanta::graphics
