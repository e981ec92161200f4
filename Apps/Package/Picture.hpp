// An image in memory that can be written as PNG.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "Apps/Package/Color.hpp"
#include "Apps/Package/Geometry.hpp"

namespace orivanta::package {

/// RGBA with straight alpha, 8 bits per channel, top row first.
class Picture {
 public:
  Picture(int width, int height, Color background, double alpha = 1.0);

  int width() const { return width_; }
  int height() const { return height_; }

  /// Paints the points for which the function returns true. Points are in pixels, with y pointing
  /// down; edges are antialiased.
  void paint(const std::function<bool(Point)>& covers, Color color);

  /// Fills an outline in pixels; its direction does not matter.
  void fill(const Outline& outline, Color color);

  /// Fills what is inside an odd number of the rings, in pixels. Takes time proportional to the
  /// number of corners times the number of rows.
  void fill(const std::vector<Outline>& rings, Color color);

  /// Paints the points with a negative distance within a rectangle, whose right and bottom edges
  /// are excluded. `distance` is in pixels; edges are antialiased.
  void paint(Point least, Point most, const std::function<double(Point)>& distance, Color color);

  /// Sets the color of each pixel from its column and row.
  void shade(const std::function<Color(int, int)>& colorAt);

  /// Writes RGB if all pixels are opaque, and RGBA otherwise. Throws `std::runtime_error` if the
  /// file cannot be written.
  void write(const std::filesystem::path& file) const;

 private:
  struct Box {
    int left, top, right, bottom;  // right and bottom are excluded
  };
  Box boxAround(Point least, Point most) const;
  void paint(const Box& box, const std::function<bool(Point)>& covers, Color color);
  std::uint8_t* pixel(int x, int y);

  int width_;
  int height_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace orivanta::package
