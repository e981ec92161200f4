// How a map view fetches and reads the floors of its venue.
#include <fmt/format.h>

#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Source/Map.hpp"
#include "Source/UI/FloorFiles.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;

void MapView::loadScene() {
  diagnostic(venue ? venue->name.value_or("") : "nil");
  std::vector<std::shared_ptr<scene::Node>> floors;
  for (const auto& map : unwrap(unwrap(venue).maps))
    if (auto floor = loadFloor(*map)) floors.push_back(std::move(floor));

  const auto self = std::static_pointer_cast<MapView>(shared_from_this());
  view::SceneView::prepare(std::move(floors), [self](bool) {
    self->startScene();
    self->activityIndicator->stopAnimating();
    self->activityIndicator->removeFromSuperview();
    if (const auto receiver = self->delegate.lock()) receiver->mapViewDidLoad();
  });
}

std::shared_ptr<scene::Node> MapView::loadFloor(Map& map) {
  const FloorFiles files = FloorFiles::of(map);
  if (files.model.empty()) {
    diagnostic("Floor with no obj: " + map.name);
    return nullptr;
  }
  const std::string folder = unwrap(venue->slug) + "/maps";
  std::optional<std::string> model;
  for (const foundation::Url& url : files.urls()) {
    auto path = downloader->loadFileSync(url, folder);
    if (!model) model = unwrap(std::move(path));
  }
  map.mapObject = assetLoader->loadObjFromURL(foundation::Url::fromFile(*model));
  addShapes(*map.mapObject);
  diagnostic(fmt::format("Floor for {}: {} shapes", map.name, map.mapObject->children().size()));
  return map.mapObject;
}

void MapView::addShapes(const scene::Node& floor) {
  for (const auto& shape : floor.children())
    scnNodeDictionary_.insert_or_assign(shape->name().value_or(""), shape);
}

}  // namespace orivanta
