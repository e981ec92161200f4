// A Wavefront model (OBJ) with its materials (MTL), as plain data that is ready to draw: triangles
// by material over one array of vertices. Pictures are named, not read.
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

/// The look of a group. What a library leaves out keeps the value given here.
struct Material {
  std::string name;                                     ///< empty for faces before any `usemtl`
  std::array<float, 3> diffuse{1.0F, 1.0F, 1.0F};       ///< `Kd`: sRGB, 0 to 1
  float opacity = 1.0F;                                 ///< `d`, or 1 - `Tr` without it; 0 to 1
  std::optional<std::filesystem::path> diffuseTexture;  ///< `map_Kd`; never outside the folder
  bool defined = false;                                 ///< whether a library defines it

  friend bool operator==(const Material&, const Material&) = default;
};

/// In the axes and units of the file. 32 bytes without gaps, so an array of them is a vertex
/// buffer.
struct Vertex {
  std::array<float, 3> position;
  std::array<float, 3> normal;             ///< of length 1; zero when the file gives none
  std::array<float, 2> textureCoordinate;  ///< (0, 0) is the picture's lower left corner

  friend bool operator==(const Vertex&, const Vertex&) = default;
};
static_assert(sizeof(Vertex) == 32);

/// All triangles of one material.
struct Group {
  Material material;
  std::vector<std::uint32_t>
      indices;  ///< into the vertices, three a triangle, wound as in the file
};

struct Model {
  std::vector<Vertex> vertices;
  std::vector<Group> groups;           ///< by first use; none is empty, names are unique
  bool hasNormals = true;              ///< false: some vertices have none
  bool hasAnyNormals = false;          ///< whether any vertex has one; the others get zero
  bool hasTextureCoordinates = false;  ///< whether any face has them; the others get (0, 0)
  std::size_t skippedFaces = 0;        ///< that are unreadable or refer to what is not there
  bool hasTooManyMaterials = false;    ///< its faces use more than `mostMaterials`: no groups then
};

/// What `Error::code` is in the domain "obj".
enum class ModelError { unreadable = 1, tooLarge, nothingToDraw };

inline constexpr std::size_t largestModelBytes = 512U << 20U;
inline constexpr std::size_t largestLibrariesBytes = 64U << 20U;  ///< of all libraries together
inline constexpr std::size_t mostMaterials = 65'536;  ///< that faces use, and that libraries define

/// Reads a model and the material libraries it names, from its folder and those inside it alone: of
/// a name that leads elsewhere only the last part counts, for textures too. Textures are paths in
/// the model's folder; whether they exist is not looked at. A library that is missing is passed
/// over, and a material that none defines keeps its name and looks as a `Material` does by default.
/// Definitions beyond the first `mostMaterials` are passed over. A model that uses more is too
/// large: each costs whoever draws it objects of its own. Any thread.
///
/// Never stops on damaged input: a face is skipped when it has fewer than three corners, one that
/// is no number or out of range, or a position that is not finite in single precision. A face of no
/// area gives no triangle. Takes at most some 50 times the bytes of the file as memory, usually
/// 3 times.
foundation::Result<Model> readModel(const std::filesystem::path& file);

/// Gives the contents of a material library; nothing when it is missing. The name is a relative
/// path without "..".
using LibrarySource = std::function<std::optional<std::string>(const std::filesystem::path& name)>;

/// The same of a text in memory. Textures are relative to the model's folder. A text without usable
/// faces gives a model without groups.
Model parseModel(std::string_view text, const LibrarySource& library = {});

}  // namespace orivanta::scene::obj
