// Wavefront models (OBJ) with their materials (MTL), ready to draw: triangles grouped by material
// over one vertex array. Textures are referenced by path and not read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Result.hpp"

namespace orivanta::scene::obj {

/// The appearance of a group. The defaults apply to what a library does not specify.
struct Material {
  std::string name;                                     ///< empty before the first `usemtl`
  std::array<float, 3> diffuse{1.0F, 1.0F, 1.0F};       ///< `Kd`: sRGB, 0 to 1
  float opacity = 1.0F;                                 ///< `d`, or else 1 - `Tr`; 0 to 1
  std::optional<std::filesystem::path> diffuseTexture;  ///< `map_Kd`; always inside the folder
  bool defined = false;                                 ///< whether a library defines it

  friend bool operator==(const Material&, const Material&) = default;
};

/// In the axes and units of the file. 32 bytes without padding, so an array can be used as a vertex
/// buffer.
struct Vertex {
  std::array<float, 3> position;
  std::array<float, 3> normal;             ///< of length 1; zero if the file has none
  std::array<float, 2> textureCoordinate;  ///< (0, 0) is the lower left corner of the image

  friend bool operator==(const Vertex&, const Vertex&) = default;
};
static_assert(sizeof(Vertex) == 32);

/// All triangles with one material.
struct Group {
  Material material;
  std::vector<std::uint32_t>
      indices;  ///< vertex indices, three per triangle, oriented as in the file
};

struct Model {
  std::vector<Vertex> vertices;
  std::vector<Group> groups;           ///< by first use; non-empty, unique names
  bool hasNormals = true;              ///< whether every vertex has one
  bool hasAnyNormals = false;          ///< whether any vertex has one; the others are zero
  bool hasTextureCoordinates = false;  ///< whether any face has them; the others are (0, 0)
  std::size_t skippedFaces = 0;        ///< faces that are unreadable or refer to missing data
  bool hasTooManyMaterials = false;    ///< more than `mostMaterials`; there are no groups then
};

/// Values of `Error::code` in the domain "obj".
enum class ModelError { unreadable = 1, tooLarge, nothingToDraw };

inline constexpr std::size_t largestModelBytes = 512U << 20U;
inline constexpr std::size_t largestLibrariesBytes = 64U << 20U;  ///< of all libraries together
inline constexpr std::size_t mostMaterials = 65'536;              ///< in faces, and in libraries

/// Reads a model and its material libraries. Only files in the model's folder and below are read:
/// for a name that leads elsewhere, only its last part is used. The same applies to textures, whose
/// paths are in the model's folder but are not checked for existence. Missing libraries are
/// ignored. A material without a definition keeps its name and the default appearance. Definitions
/// beyond the first `mostMaterials` are ignored, and a model that uses more is rejected as too
/// large, because each material needs its own drawing resources. Thread-safe.
///
/// Damaged input never stops the program. A face is skipped if it has fewer than three corners, if
/// a corner is not a number or is out of range, or if a position is not finite in single precision.
/// A face without area has no triangles. Needs at most about 50 times the file's size in memory,
/// usually 3 times.
foundation::Result<Model> readModel(const std::filesystem::path& file);

/// Returns the contents of a material library, or nothing if it is missing. The name is a relative
/// path without "..".
using LibrarySource = std::function<std::optional<std::string>(const std::filesystem::path& name)>;

/// Parses a model in memory. Texture paths are relative to the model's folder. A text without
/// usable faces gives a model without groups.
Model parseModel(std::string_view text, const LibrarySource& library = {});

}  // namespace orivanta::scene::obj
