#include "Platform/Scene/Obj/Model.hpp"

#include <fmt/format.h>

#include <fstream>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>

#include "Platform/Scene/Obj/LocalPath.hpp"
#include "Platform/Scene/Obj/MaterialLibrary.hpp"
#include "Platform/Scene/Obj/MeshBuilder.hpp"
#include "Platform/Scene/Obj/ModelStatements.hpp"
#include "Platform/Scene/Obj/TextLines.hpp"

namespace orivanta::scene::obj {

namespace fs = std::filesystem;
using foundation::Error;

namespace {

Error failure(ModelError code, const fs::path& file, std::string_view what) {
  return {"obj", static_cast<int>(code), fmt::format("{}: {}", file.string(), what)};
}

// As a string these would be filled with zeros first, which takes as long as reading them.
struct Bytes {
  std::unique_ptr<char[]> data;
  std::size_t count;

  std::string_view text() const { return {data.get(), count}; }
};

std::variant<Bytes, Error> readFile(const fs::path& file, std::size_t mostBytes) {
  std::error_code problem;
  const auto unreadable = [&] {
    const std::string reason = problem ? problem.message() : "cannot be read";
    return failure(ModelError::unreadable, file, reason);
  };
  const auto status = fs::status(file, problem);
  if (problem) return unreadable();
  if (!fs::is_regular_file(status))
    return failure(ModelError::unreadable, file, "is not a regular file");
  const std::uintmax_t size = fs::file_size(file, problem);
  if (problem) return unreadable();
  if (size > mostBytes)
    return failure(ModelError::tooLarge, file,
                   fmt::format("has {} bytes; {} are allowed", size, mostBytes));
  const auto count = static_cast<std::size_t>(size);
  Bytes bytes{std::unique_ptr<char[]>(new char[count]), count};
  std::ifstream stream(file, std::ios::binary);
  if (!stream.read(bytes.data.get(), static_cast<std::streamsize>(count))) return unreadable();
  return bytes;
}

// The definitions of the libraries that the lines name, the first one of each name.
class Definitions {
 public:
  Definitions(const std::vector<std::string>& lines, const LibrarySource& library)
      : library_(library) {
    for (const std::string& line : lines) {
      // One name with blanks in it, or several names.
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
  Model model = buildMesh(statements);
  Definitions definitions(statements.libraryLines, library);
  for (Group& group : model.groups) definitions.apply(group.material);
  return model;
}

std::variant<Model, Error> readModel(const fs::path& file) {
  auto bytes = readFile(file, largestModelBytes);
  if (auto* const error = std::get_if<Error>(&bytes)) return std::move(*error);
  const fs::path folder = file.parent_path();
  std::size_t roomForLibraries = largestLibrariesBytes;
  Model model = parseModel(std::get<Bytes>(bytes).text(), [&](const fs::path& name) {
    const auto library = readFile(folder / name, roomForLibraries);
    const auto* const read = std::get_if<Bytes>(&library);
    if (read == nullptr) return std::optional<std::string>();
    roomForLibraries -= read->count;
    return std::optional(std::string(read->text()));
  });
  if (model.groups.empty())
    return failure(ModelError::nothingToDraw, file, "no face of it can be drawn");
  for (Group& group : model.groups)
    if (auto& texture = group.material.diffuseTexture) texture = folder / *texture;
  return model;
}

}  // namespace orivanta::scene::obj
