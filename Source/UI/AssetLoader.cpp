#include "Source/UI/AssetLoader.hpp"

#include <fmt/format.h>

#include <cstring>
#include <optional>
#include <set>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Obj/Model.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Source/RawData.hpp"
#include "Source/UI/Floors/PictureBudget.hpp"
#include "Source/UI/SdkBundle.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::failure;
using foundation::unwrap;
using scene::obj::Model;

namespace {

// Reads the pictures of a model, within the budget of the current load, if there is one.
FloorPictures::Images readPictures(const Model& model) {
  std::set<std::filesystem::path> files;
  for (const auto& group : model.groups)
    if (group.material.diffuseTexture) files.insert(*group.material.diffuseTexture);
  if (auto* const pictures = FloorPictures::current()) return pictures->read(files);
  return FloorPictures(std::make_shared<PictureBudget>(1)).read(files);
}

std::shared_ptr<scene::Material> makeMaterial(const scene::obj::Material& look,
                                              const FloorPictures::Images& pictures) {
  auto material =
      scene::Material::make(graphics::Color{look.diffuse[0], look.diffuse[1], look.diffuse[2]});
  if (!look.name.empty()) material->setName(look.name);
  material->setOpacity(look.opacity);
  if (look.diffuseTexture) {
    if (auto image = pictures.at(*look.diffuseTexture))
      material->setDiffuse({.contents = std::move(image),
                            .wrapS = scene::WrapMode::repeat,
                            .wrapT = scene::WrapMode::repeat});
  }
  return material;
}

template <class Value>
scene::SharedBytes bytesOf(const std::vector<Value>& values) {
  auto bytes = std::make_shared<std::vector<std::byte>>(values.size() * sizeof(Value));
  if (!values.empty()) std::memcpy(bytes->data(), values.data(), bytes->size());
  return bytes;
}

// Converts the model to one mesh with an element for each material.
std::shared_ptr<scene::Geometry> makeMesh(const Model& model) {
  const FloorPictures::Images pictures = readPictures(model);
  std::vector<scene::GeometryElement> elements;
  std::vector<std::shared_ptr<scene::Material>> materials;
  for (const auto& group : model.groups) {
    elements.push_back({bytesOf(group.indices), sizeof group.indices[0]});
    materials.push_back(makeMaterial(group.material, pictures));
  }
  auto mesh = scene::Geometry::make(
      bytesOf(model.vertices), std::move(elements),
      {.normals = model.hasAnyNormals, .textureCoordinates = model.hasTextureCoordinates});
  mesh->setMaterials(std::move(materials));
  return mesh;
}

// Returns the flattened scene of a model file: one node, with one mesh if there is any.
foundation::Result<std::shared_ptr<scene::Scene>> readScene(const foundation::Url& url) {
  const auto path = url.filePath();
  if (!path) return failure("", 0, fmt::format("{}: not a file", url.absoluteString()));
  const auto model = scene::obj::readModel(*path);
  if (!model && model.error().code != static_cast<int>(scene::obj::ModelError::nothingToDraw))
    return failure(model.error());
  auto scene = scene::Scene::make();
  scene->rootNode()->addChild(model ? scene::Node::make(makeMesh(*model)) : scene::Node::make());
  return scene;
}

// Returns a node with one child for each element. The children share the mesh's vertices and have
// the elements' materials.
std::shared_ptr<scene::Node> split(const scene::Geometry& mesh) {
  auto container = scene::Node::make();
  const auto materials = mesh.materials();
  for (std::size_t i = 0; i < mesh.elements().size(); ++i) {
    if (i >= materials.size()) foundation::fatalError("Index out of range");
    auto part = scene::Geometry::make(mesh.sources(), {mesh.elements()[i]});
    part->setMaterials({materials[i]});
    auto node = scene::Node::make(std::move(part));
    node->setName(materials[i]->name());
    container->addChild(node);
  }
  return container;
}

graphics::Vector3 vectorOf(const RawData& list) {
  graphics::Vector3 vector(0.0F);
  const auto numbers = list.arrayValue();
  for (std::size_t i = 0; i < numbers.size() && i < 3; ++i)
    vector[static_cast<int>(i)] = static_cast<float>(numbers[i].doubleValue());
  return vector;
}

std::shared_ptr<scene::Node> makeNode(const RawData& description, AssetLoader& loader) {
  const auto model = description["model"].string();
  auto node = model ? loader.loadObj(*model) : scene::Node::make();
  node->setName(description["name"].string());
  node->setPosition(vectorOf(description["position"]));
  node->setEulerAngles(vectorOf(description["eulerAngles"]));
  for (const RawData& child : description["children"].arrayValue())
    node->addChild(makeNode(child, loader));
  return node;
}

}  // namespace

AssetLoader::AssetLoader() : bundle(sdkBundle()) {}

std::shared_ptr<scene::Node> AssetLoader::loadObj(std::string_view name) {
  return loadObjFromURL(foundation::Url::fromFile(unwrap(bundle.file(name, "obj"))));
}

std::shared_ptr<scene::Node> AssetLoader::loadObjFromURL(const foundation::Url& url) {
  const auto scene = readScene(url);
  if (!scene) {
    diagnostic("Load Scene failed");
    foundation::fatalAbsence();
  }
  const auto mesh = (*scene)->rootNode()->children().front();
  diagnostic(fmt::format("childNodes {}", mesh->children().size()));
  return split(unwrap(mesh->geometry()));
}

foundation::Result<std::shared_ptr<scene::Node>> AssetLoader::readModel(
    const foundation::Url& url) {
  const auto scene = readScene(url);
  if (!scene) return failure(scene.error());
  const auto mesh = (*scene)->rootNode()->children().front()->geometry();
  if (!mesh)
    return failure("", 0, fmt::format("{}: the model has no faces", url.filePath()->string()));
  return split(*mesh);
}

std::shared_ptr<scene::Node> AssetLoader::load3DAsset(std::string_view name,
                                                      std::string_view nodeName) {
  const auto bytes = unwrap(bundle.bytes(name, "scn"));
  const auto scene = RawData::parse({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  if (!scene) {
    diagnostic("Load 3DAsset failed");
    return nullptr;
  }
  for (const RawData& description : (*scene)["nodes"].arrayValue())
    if (description["name"].string() == nodeName) return makeNode(description, *this);
  return nullptr;
}

}  // namespace orivanta
