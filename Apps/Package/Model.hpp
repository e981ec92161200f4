// Builds a model from flat faces and writes it as Wavefront OBJ and MTL.
//
// Outlines are in meters; heights are in the venue's units above the floor. The files contain units
// with x pointing east, y north and z up.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Apps/Package/Color.hpp"
#include "Apps/Package/Geometry.hpp"

namespace orivanta::package {

struct Material {
  std::string name;
  Color color = {1.0, 1.0, 1.0};
  std::string_view texture =
      {};  ///< an image file next to the model, repeated every four meters; may be empty
};

/// The height of a surface above a point of the plan, in units.
using Height = std::function<double(Point)>;

class Model {
 public:
  explicit Model(double unitsPerMeter) : unitsPerMeter_(unitsPerMeter) {}

  /// Sets the material of the following faces. If the name was used before, the faces join the
  /// earlier ones, and the first appearance is kept.
  void use(const Material& material);

  /// Adds a flat surface that faces up.
  void top(const Outline& outline, double height);

  /// Adds one vertical wall that faces to the right of the way between two points.
  void side(Point from, Point to, double bottom, double top);

  /// Adds walls that face outward.
  void walls(const Outline& outline, double from, double to);

  /// Adds walls and a top. The bottom is never visible and is left out.
  void prism(const Outline& outline, double from, double to);

  /// Adds a prism with a sloping top; `height` must be linear.
  void slope(const Outline& outline, double from, const Height& height);

  /// Adds the side of a cone between two rings with equally many corners, the lower first.
  void frustum(const Outline& lower, double from, const Outline& upper, double to);

  /// The contents of the files. The model refers to its material library, a file next to it.
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
  // Lines of the file with two or three numbers. Stores each once and numbers them from 1.
  class Lines {
   public:
    using Values = std::array<double, 3>;
    /// Lines begin with `keyword`, and have `count` of the values.
    Lines(std::string_view keyword, std::size_t count) : keyword_(keyword), count_(count) {}
    std::size_t number(const Values& values);
    const std::string& text() const { return text_; }

   private:
    void grow();
    std::string_view keyword_;
    std::size_t count_;
    std::vector<Values> values_;
    std::vector<std::uint32_t> numbers_;  // a hash table with open addressing; 0 is empty
    std::string text_;
  };

  void face(std::span<const Corner> corners);
  void wall(Corner from, Corner to, double bottom);

  double unitsPerMeter_;
  std::vector<Group> groups_;
  std::unordered_map<std::string, std::size_t> groupsByName_;
  std::size_t current_ = 0;
  Lines vertices_{"v", 3};
  Lines textureCoordinates_{"vt", 2};
  Lines normals_{"vn", 3};
};

}  // namespace orivanta::package
