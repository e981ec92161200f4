// The statements of a model's text, before a mesh is built from them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::scene::obj {

using Point = std::array<float, 3>;

/// Stands for a missing index.
inline constexpr std::uint32_t none = 0xFFFFFFFF;

/// A corner of a face: indices from 0 into the lists below, possibly out of range.
struct Corner {
  std::uint32_t position;
  std::uint32_t textureCoordinate = none;
  std::uint32_t normal = none;
};

/// Consecutive faces with the same material.
struct FaceRun {
  std::uint32_t material;  ///< index into the names
  std::size_t faceCount;
};

struct ModelStatements {
  std::vector<Point> positions;  ///< x is NaN if any of the three is not finite
  std::vector<std::array<float, 2>> textureCoordinates;  ///< (0, 0) if not finite
  std::vector<Point> normals;               ///< of length 1, or zero if they have no direction
  std::vector<Corner> corners;              ///< of all faces in order
  std::vector<std::uint32_t> cornerCounts;  ///< for each face, at least 3
  std::vector<FaceRun> runs;
  std::vector<std::string> materialNames;  ///< unique, by the first face that uses them
  std::vector<std::string> libraryLines;   ///< the text after each `mtllib`
  std::size_t skippedFaces = 0;
  bool hasTooManyMaterials = false;  ///< more than `mostMaterials`; the rest is not read
};

ModelStatements readStatements(std::string_view text);

}  // namespace orivanta::scene::obj
