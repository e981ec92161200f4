// What the text of a model says, before it is put together.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::scene::obj {

using Point = std::array<float, 3>;

/// In place of an index that is not given.
inline constexpr std::uint32_t none = 0xFFFFFFFF;

/// A corner of a face: indices from 0 into the lists below. May be beyond them.
struct Corner {
  std::uint32_t position;
  std::uint32_t textureCoordinate = none;
  std::uint32_t normal = none;
};

/// Faces one after the other that have the same material.
struct FaceRun {
  std::uint32_t material;  ///< index into the names
  std::size_t faceCount;
};

struct ModelStatements {
  std::vector<Point> positions;  ///< with NaN as x when any of the three is not finite
  std::vector<std::array<float, 2>> textureCoordinates;  ///< (0, 0) when not finite
  std::vector<Point> normals;               ///< of length 1, or all 0 for those without a direction
  std::vector<Corner> corners;              ///< of all faces in their order
  std::vector<std::uint32_t> cornerCounts;  ///< of each face, at least 3
  std::vector<FaceRun> runs;
  std::vector<std::string> materialNames;  ///< unique, by the first face that uses them
  std::vector<std::string> libraryLines;   ///< what stands behind each `mtllib`
  std::size_t skippedFaces = 0;
  bool hasTooManyMaterials = false;  ///< more than `mostMaterials`; nothing is read from there on
};

ModelStatements readStatements(std::string_view text);

}  // namespace orivanta::scene::obj
