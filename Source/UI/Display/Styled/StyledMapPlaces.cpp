// The selected place and what is closed.
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/StackedPlace.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

void StyledMap::setTexts(const guidance::InterfaceTexts& texts) {
  texts_ = texts;
  showClosures();
}

void StyledMap::setSelected(std::shared_ptr<Location> place) {
  selected_ = std::move(place);
  showSelected();
}

void StyledMap::showSelected() {
  if (!host_.view) return;
  const graphics::Transaction transaction;
  selectedOutline_.clear();
  const MapView& view = *host_.view;
  const auto& floor = view.currentMap();
  if (!selected_ || !floor || !floor->mapObject || !view.venue) {
    stack_.setSelected(std::nullopt);
    return labels_.setSelected(std::nullopt);
  }
  std::string name = labelName(*view.venue, *selected_);
  if (closures_.contains(selected_->id.value_or("")))
    name += (name.empty() ? "" : "\n") + texts_.text("interface.mark.closed");
  stack_.setSelected(stackedMark(view, selected_, name));
  if (!isOnFloor(*selected_, *floor)) return labels_.setSelected(std::nullopt);
  selectedOutline_.show(*host_.view, *selected_, *theme_);
  labels_.setSelected(SelectedPlace{selected_, std::move(name), theme_->words.kindOf(*selected_),
                                    view.findPosition3D(*selected_)});
}

void StyledMap::setClosures(const guidance::Closures& closures) {
  if (closures == closures_) return;
  closures_ = closures;
  showClosures();
}

void StyledMap::showClosures() {
  if (!host_.view) return;
  const graphics::Transaction transaction;
  labels_.setClosures(closures_, texts_.text("interface.mark.closed"));
  if (const auto& venue = host_.view->venue; venue && venue->maps && !hasModelColors_)
    for (const auto& map : *venue->maps)
      if (map->mapObject) colorFloor(*map, shapeRoles(*map, *venue, theme_->words));
  stack_.copyLooks(theme_);
  stackChanged();
  showSelected();
}

}  // namespace orivanta
