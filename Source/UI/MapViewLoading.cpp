// How a map view fetches and reads the floors of its venue.
#include <fmt/format.h>

#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/Floors/FloorFiles.hpp"
#include "Source/UI/Floors/PictureBudget.hpp"
#include "Source/UI/Parts/MapViewParts.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;

void MapView::loadScene() {
  if (const auto former = parts_->floorLoad) former->cancel();
  diagnostic(venue ? venue->name.value_or("") : "nil");
  std::vector<std::shared_ptr<scene::Node>> floors;
  const auto budget = std::make_shared<PictureBudget>(countFloorsWithPictures(unwrap(venue)));
  for (const auto& map : unwrap(unwrap(venue).maps))
    if (auto floor = loadFloor(*map, budget)) floors.push_back(std::move(floor));

  const auto self = std::static_pointer_cast<MapView>(shared_from_this());
  view::SceneView::prepare(std::move(floors), [self](bool) {
    self->startScene();
    self->hideActivity();
    if (const auto receiver = self->delegate.lock()) receiver->mapViewDidLoad();
  });
}

std::shared_ptr<FloorLoad> MapView::loadFloors(FloorLoadHandlers handlers,
                                               const std::shared_ptr<Map>& first) {
  unwrap(venue);
  if (const auto former = parts_->floorLoad) former->cancel();
  parts_->shapes.clear();
  if (venue->maps)
    for (const auto& map : *venue->maps)
      if (map->mapObject) parts_->shapes.add(*map->mapObject);
  if (StyledMap* const style = styled()) style->venueChanged();
  showActivity();
  FloorStage stage{[this](Map& map, const auto& model) { setModel(map, model); },
                   [this](const auto& map) { showFirst(map); }, [this] { hideActivity(); },
                   [this](const FloorLoad& ended) {
                     if (parts_->floorLoad.get() == &ended) parts_->floorLoad.reset();
                   }};
  parts_->floorLoad =
      std::make_shared<FloorLoading>(std::static_pointer_cast<MapView>(shared_from_this()),
                                     std::move(stage), std::move(handlers), first);
  parts_->floorLoad->start();
  return parts_->floorLoad;
}

// Replaces the previous model of the floor, also in the scene if the floor is shown.
void MapView::setModel(Map& map, const std::shared_ptr<scene::Node>& model) {
  const graphics::Transaction transaction;
  if (map.mapObject) {
    if (const auto root = map.mapObject->parent()) root->insertChild(model, 0);
    map.mapObject->removeFromParent();
  }
  map.mapObject = model;
  parts_->shapes.add(*model);
  if (StyledMap* const style = styled()) style->addFloor(map);
}

void MapView::showFirst(const std::shared_ptr<Map>& map) {
  {
    const graphics::Transaction transaction;
    unwrap(sceneView).setScene(scene::Scene::make());
    startScene(map);
  }
  hideActivity();
  if (const auto receiver = delegate.lock()) receiver->mapViewDidLoad();
}

std::shared_ptr<scene::Node> MapView::loadFloor(Map& map,
                                                const std::shared_ptr<PictureBudget>& budget) {
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
  FloorPictures pictures(budget);
  map.mapObject = assetLoader->loadObjFromURL(foundation::Url::fromFile(*model));
  parts_->shapes.add(*map.mapObject);
  if (StyledMap* const style = styled()) style->addFloor(map);
  diagnostic(fmt::format("Floor for {}: {} shapes", map.name, map.mapObject->children().size()));
  for (const std::string& remark : pictures.remarks()) diagnostic(remark);
  return map.mapObject;
}

}  // namespace orivanta
