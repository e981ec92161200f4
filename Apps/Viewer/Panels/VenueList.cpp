#include "Apps/Viewer/Panels/VenueList.hpp"

#include <algorithm>

#include "Source/Venue.hpp"

namespace orivanta::viewer {

VenueList::VenueList()
    : title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true},
                                     "Where do you want to go?")),
      list_(std::make_shared<List>()) {
  addSubview(title_);
  addSubview(list_);
}

void VenueList::show(const std::vector<std::shared_ptr<Venue>>& venues) {
  venues_ = venues;
  std::vector<std::shared_ptr<Row>> rows;
  for (const auto& venue : venues_) {
    rows.push_back(std::make_shared<Row>(RowText{.title = venue->name.value_or(""),
                                                 .detail = venue->slug.value_or(""),
                                                 .trailing = "\u203A"}));
    rows.back()->action = [this, venue] {
      if (chosen) chosen(venue);
    };
  }
  list_->setRows(std::move(rows));
  marked_ = 0;
}

void VenueList::moveMark(int down) {
  if (venues_.empty()) return;
  const auto last = static_cast<int>(venues_.size()) - 1;
  marked_ = static_cast<std::size_t>(std::clamp(static_cast<int>(marked_) + down, 0, last));
  list_->mark(marked_);
}

void VenueList::chooseMarked() {
  if (marked_ < venues_.size() && chosen) chosen(venues_[marked_]);
}

graphics::Size VenueList::arrange(graphics::Size room) {
  const double width = std::min(420.0, room.width - 2 * theme::margin);
  title_->setFrame({{theme::padding, 8}, {width - 2 * theme::padding, 48}});
  const double height = std::min(list_->contentHeight(), room.height - 2 * theme::margin - 70);
  list_->setFrame({{0, 58}, {width, height}});
  list_->arrange();
  return {width, 58 + height + 10};
}

}  // namespace orivanta::viewer
