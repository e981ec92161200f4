#include "Apps/Viewer/Panels/VenueList.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"

#include "Source/Venue.hpp"

namespace orivanta::viewer {

VenueList::VenueList(const guidance::InterfaceTexts& texts)
    : isRightToLeft_(texts.isRightToLeft()),
      title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 0},
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
  const double width = std::min(theme::withText(420), room.width - 2 * theme::margin);
  const double inner = width - 2 * theme::padding;
  const double title = std::max(48.0, title_->fitting(inner).height + 12);
  title_->setFrame({{theme::padding, 8}, {inner, title}});
  const double top = title + 10;
  const double height = list_->heightWithin(room.height - 2 * theme::margin - top - 12, width);
  list_->setFrame({{0, top}, {width, height}});
  list_->arrange();
  directChildren(*this, width);
  return {width, top + height + 10};
}

}  // namespace orivanta::viewer
