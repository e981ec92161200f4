#include "Apps/Viewer/Panels/VenueList.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"

#include "Source/Venue.hpp"

namespace orivanta::viewer {

VenueList::VenueList(const guidance::InterfaceTexts& texts)
    : isRightToLeft_(texts.isRightToLeft()),
      title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true},
                                     texts.text("interface.venues.title"))),
      list_(std::make_shared<List>()) {
  addSubview(title_);
  addSubview(list_);
}

void VenueList::show(const std::vector<std::shared_ptr<Venue>>& venues) {
  venues_ = venues;
  std::vector<std::shared_ptr<Row>> rows;
  for (const auto& venue : venues_) {
    rows.push_back(
        std::make_shared<Row>(RowText{.title = venue->name.value_or(""),
                                      .detail = venue->slug.value_or(""),
                                      .trailing = isRightToLeft_ ? "\u2039" : "\u203A"}));
    rows.back()->action = [this, venue] {
      if (chosen) chosen(venue);
    };
  }
  list_->setRows(std::move(rows));
}

void VenueList::chooseMarked() {
  const std::size_t marked = list_->marked().value_or(0);
  if (marked < venues_.size() && chosen) chosen(venues_[marked]);
}

graphics::Size VenueList::arrange(graphics::Size room) {
  const double width = std::min(420.0, room.width - 2 * theme::margin);
  title_->setFrame({{theme::padding, 8}, {width - 2 * theme::padding, 48}});
  const double height = list_->heightWithin(room.height - 2 * theme::margin - 70);
  list_->setFrame({{0, 58}, {width, height}});
  list_->arrange();
  directChildren(*this, width);
  return {width, 58 + height + 10};
}

}  // namespace orivanta::viewer
