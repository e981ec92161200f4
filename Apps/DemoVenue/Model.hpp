// A model being built up from flat faces, and its text as Wavefront OBJ and MTL.
//
// Outlines come in meters, heights in the venue's units above the floor; the files hold units, x to
// the east, y to the north, z up.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Geometry.hpp"
#include "Apps/DemoVenue/Palette.hpp"

namespace orivanta::demo {

struct Material {
  std::string name;
  Colour colour = {1.0, 1.0, 1.0};
  std::string_view texture =
      {};  ///< a picture beside the model, four meters to a side; may be empty
};

/// The height of a surface above a point of the plan, in units.
using Height = std::function<double(Point)>;

class Model {
 public:
  /// What follows is made of this material. A name that was used before continues that material's
  /// faces and keeps its first look.
  void use(const Material& material);

  /// A flat surface that looks up.
  void top(const Outline& outline, double height);

  /// Walls that look outwards.
  void walls(const Outline& outline, double from, double to);

  /// Walls and a top; no bottom, which nobody sees.
  void prism(const Outline& outline, double from, double to);

  /// A prism with a top that slopes; `height` must be linear.
  void slope(const Outline& outline, double from, const Height& height);

  /// The side of a cone between two rings with as many corners, the lower first.
  void frustum(const Outline& lower, double from, const Outline& upper, double to);

  /// The files' texts. The model names its library, a file beside it.
  std::string obj(std::string_view library) const;
  std::string mtl() const;

 private:
  struct Corner {
    Point plan;
    double height;
  };
  struct Group {
    Material material;
    std::string faces;
  };
  // A line of the file once, and its number counted from 1.
  class Lines {
   public:
    std::size_t number(std::string line);
    const std::string& text() const { return text_; }

   private:
    std::map<std::string, std::size_t> numbers_;
    std::string text_;
  };

  void face(const std::vector<Corner>& corners);
  void wall(Corner from, Corner to, double bottom);

  std::vector<Group> groups_;
  std::size_t current_ = 0;
  Lines vertices_;
  Lines textureCoordinates_;
  Lines normals_;
};

}  // namespace orivanta::demo
