// A Wavefront model; the same text serves as the library that it names.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::scene::obj {
namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void checkVertex(const Vertex& vertex) {
  double squaredLength = 0.0;
  for (const float coordinate : vertex.normal) {
    const double exact{coordinate};
    squaredLength += exact * exact;
  }
  require(std::abs(squaredLength - 1.0) < 1e-3);
  for (const float coordinate : vertex.position) require(std::isfinite(coordinate));
  for (const float coordinate : vertex.textureCoordinate) require(std::isfinite(coordinate));
}

void checkModel(std::string_view text) {
  const Model model = parseModel(text, [&](const std::filesystem::path& name) {
    require(name.is_relative() && !name.empty() && *name.begin() != "..");
    return std::optional(std::string(text));
  });
  for (const Vertex& vertex : model.vertices) checkVertex(vertex);
  std::set<std::string_view> names;
  for (const Group& group : model.groups) {
    require(names.insert(group.material.name).second);
    require(!group.indices.empty() && group.indices.size() % 3 == 0);
    for (const std::uint32_t index : group.indices) require(index < model.vertices.size());
    if (const auto& texture = group.material.diffuseTexture)
      require(texture->is_relative() && *texture->begin() != "..");
  }
}

}  // namespace
}  // namespace orivanta::scene::obj

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  orivanta::scene::obj::checkModel({reinterpret_cast<const char*>(bytes), count});
  return 0;
}
