#include "Platform/Scene/Obj/Model.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <set>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Scene/Obj/LocalPath.hpp"
#include "Platform/Scene/Obj/MaterialLibrary.hpp"
#include "Platform/Scene/Obj/MeshBuilder.hpp"
#include "Platform/Scene/Obj/ModelStatements.hpp"
#include "Platform/Scene/Obj/TextLines.hpp"

namespace orivanta::scene::obj {

namespace fs = std::filesystem;

namespace {

auto failure(ModelError code, std::string description) {
  return foundation::failure("obj", static_cast<int>(code), std::move(description));
}

// The materials that the named libraries define. If a name occurs several times, the first
// definition is used.
class Definitions {
 public:
  Definitions(const std::vector<std::string>& lines, const LibrarySource& library)
      : library_(library) {
    for (const std::string& line : lines) {
      // The line may contain one file name with spaces, or several file names.
      if (add(line)) continue;
      std::string_view rest = line;
      for (auto name = takeWord(rest); !name.empty() && mayTry(); name = takeWord(rest)) add(name);
    }
  }

  void apply(Material& material) {
    const auto found = materials_.find(material.name);
    if (found != materials_.end()) material = std::move(found->second);
  }

 private:
  bool mayTry() const {
    constexpr std::size_t mostNames = 256;
    return names_.size() < mostNames;
  }

  bool add(std::string_view name) {
    const auto path = localPath(name);
    if (!path || !library_ || !mayTry() || !names_.insert(*path).second) return false;
    const auto text = library_(*path);
    if (!text) return false;
    for (Material& material : parseMaterials(*text)) {
      if (materials_.size() >= mostMaterials) break;
      std::string key = material.name;
      materials_.try_emplace(std::move(key), std::move(material));
    }
    return true;
  }

  const LibrarySource& library_;
  std::set<fs::path> names_;
  std::unordered_map<std::string, Material> materials_;
};

}  // namespace

Model parseModel(std::string_view text, const LibrarySource& library) {
  ModelStatements statements = readStatements(text);
  if (statements.hasTooManyMaterials) {
    Model refused;
    refused.hasTooManyMaterials = true;
    return refused;
  }
  Model model = buildMesh(statements);
  Definitions definitions(statements.libraryLines, library);
  for (Group& group : model.groups) definitions.apply(group.material);
  return model;
}

foundation::Result<Model> readModel(const fs::path& file) {
  const auto bytes = foundation::readBytes(file, largestModelBytes);
  if (!bytes)
    return failure(bytes.error().code == EFBIG ? ModelError::tooLarge : ModelError::unreadable,
                   bytes.error().description);
  const fs::path folder = file.parent_path();
  std::size_t roomForLibraries = largestLibrariesBytes;
  Model model = parseModel(bytes->text(), [&](const fs::path& name) -> std::optional<std::string> {
    auto library = foundation::readFile(folder / name, roomForLibraries);
    if (!library) return std::nullopt;
    roomForLibraries -= library->size();
    return std::move(*library);
  });
  if (model.hasTooManyMaterials)
    return failure(ModelError::tooLarge,
                   fmt::format("{}: uses more than {} materials", file.string(), mostMaterials));
  if (model.groups.empty())
    return failure(ModelError::nothingToDraw,
                   fmt::format("{}: the model has no faces that can be drawn", file.string()));
  for (Group& group : model.groups)
    if (auto& texture = group.material.diffuseTexture) texture = folder / *texture;
  return model;
}

}  // namespace orivanta::scene::obj
