// A picture in memory and its PNG.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "Apps/DemoVenue/Geometry.hpp"
#include "Apps/DemoVenue/Palette.hpp"

namespace orivanta::demo {

/// Rows from the top, RGBA with straight alpha, 8 bits each.
class Picture {
 public:
  Picture(int width, int height, Colour background, double alpha = 1.0);

  int width() const { return width_; }
  int height() const { return height_; }

  /// Paints where the function says so, between 0 and 1 for each pixel's share. Points are in
  /// pixels, y downwards; the edge of a shape is smoothed over a pixel.
  void paint(const std::function<bool(Point)>& covers, Colour colour);

  /// Paints the inside of an outline in pixels, whichever way around it goes.
  void fill(const Outline& outline, Colour colour);

  /// Paints within a rectangle, right and bottom outside, where the distance to a border is
  /// negative; `distance` is in pixels, and the edge is smoothed over a pixel.
  void paint(Point least, Point most, const std::function<double(Point)>& distance, Colour colour);

  /// The color of each pixel from its column and row.
  void shade(const std::function<Colour(int, int)>& colourAt);

  /// Writes RGB when every pixel is opaque, else RGBA. Throws `std::runtime_error` when the file
  /// cannot be written.
  void write(const std::filesystem::path& file) const;

 private:
  struct Box {
    int left, top, right, bottom;  // right and bottom are outside
  };
  Box boxAround(Point least, Point most) const;
  void paint(const Box& box, const std::function<bool(Point)>& covers, Colour colour);
  std::uint8_t* pixel(int x, int y);

  int width_;
  int height_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace orivanta::demo
