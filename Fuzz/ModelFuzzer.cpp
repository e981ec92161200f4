// Reads the input as a Wavefront model and as the material library that it names.
#include <cmath>
#include <set>
#include <string_view>

#include "Fuzz/Fuzzer.hpp"
#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::scene::obj {
namespace {

void checkVertex(const Vertex& vertex, bool hasNormals) {
  double squaredLength = 0.0;
  for (const float coordinate : vertex.normal) {
    const double exact{coordinate};
    squaredLength += exact * exact;
  }
  ORIVANTA_REQUIRE(std::abs(squaredLength - 1.0) < 1e-3 || (!hasNormals && squaredLength == 0.0));
  for (const float coordinate : vertex.position) ORIVANTA_REQUIRE(std::isfinite(coordinate));
  for (const float coordinate : vertex.textureCoordinate)
    ORIVANTA_REQUIRE(std::isfinite(coordinate));
}

void checkModel(std::string_view text) {
  const Model model = parseModel(text, [&](const std::filesystem::path& name) {
    ORIVANTA_REQUIRE(name.is_relative() && !name.empty() && *name.begin() != "..");
    return std::optional(std::string(text));
  });
  for (const Vertex& vertex : model.vertices) checkVertex(vertex, model.hasNormals);
  std::set<std::string_view> names;
  for (const Group& group : model.groups) {
    ORIVANTA_REQUIRE(names.insert(group.material.name).second);
    ORIVANTA_REQUIRE(!group.indices.empty() && group.indices.size() % 3 == 0);
    for (const std::uint32_t index : group.indices) ORIVANTA_REQUIRE(index < model.vertices.size());
    if (const auto& texture = group.material.diffuseTexture)
      ORIVANTA_REQUIRE(texture->is_relative() && *texture->begin() != "..");
  }
}

}  // namespace
}  // namespace orivanta::scene::obj

ORIVANTA_FUZZER(Model, orivanta::scene::obj::checkModel)
