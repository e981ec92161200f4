#include "Apps/Viewer/VenuePanels.hpp"

#include <algorithm>
#include <utility>

#include "Source/Attribution.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double mostBackShare = 0.3;  // of the window's width, for the text of the back button
constexpr double leastMargin = 12;     // points

void place(view::View& view, const graphics::Rect& frame) {
  view.setHidden(frame.size.width <= 0);
  view.setFrame(frame);
}

}  // namespace

VenuePanels::VenuePanels(const Venue& venue, const guidance::InterfaceTexts& texts)
    : search(std::make_shared<SearchPanel>(venue, texts)),
      card(std::make_shared<PlaceCard>(texts)),
      route(std::make_shared<RoutePanel>(texts)),
      floors(std::make_shared<FloorSwitch>(*venue.maps)),
      attribution(std::make_shared<AttributionLine>(attributionText(venue))),
      help(std::make_shared<KeyHelp>(texts)),
      mapButtons(std::make_shared<MapButtons>()),
      back(std::make_shared<Button>(ButtonLook::plain, "")),
      handle(std::make_shared<SheetHandle>()),
      backPanel_(std::make_shared<Panel>()),
      paper_(std::make_shared<SheetPaper>()),
      backText_(texts.text("interface.venues.back")),
      isRightToLeft_(texts.isRightToLeft()) {
  backPanel_->addSubview(back);
  help->setHidden(true);
  connectHandle();
}

std::vector<std::shared_ptr<view::View>> VenuePanels::all() const {
  return {attribution, mapButtons, backPanel_, floors, paper_, card, route, handle, search, help};
}

void VenuePanels::addTo(view::View& parent) const {
  for (const auto& panel : all()) parent.addSubview(panel);
}

std::vector<graphics::Rect> VenuePanels::covered() const {
  std::vector<graphics::Rect> frames;
  for (const auto& panel : all())
    if (!panel->isHidden()) frames.push_back(panel->frame());
  return frames;
}

std::vector<view::View*> VenuePanels::inReadingOrder() const {
  if (!help->isHidden()) return {help.get()};
  return {backPanel_.get(), search.get(), handle.get(),     card.get(),
          route.get(),      floors.get(), mapButtons.get(), attribution.get()};
}

// The button has its text, or only a sign in a narrow window.
double VenuePanels::wayBackWidth() {
  help->setWayBack(contents_.wayBack);
  if (!contents_.wayBack) return 0;
  const std::string sign = isRightToLeft_ ? "\u203A" : "\u2039";
  back->setText(sign + "  " + backText_);
  if (back->fittingWidth() > mostBackShare * size_.width) back->setText(sign);
  return std::max(back->fittingWidth(), theme::control());
}

PanelMeasures VenuePanels::measures() {
  PanelMeasures measures;
  measures.window = size_;
  measures.isRightToLeft = isRightToLeft_;
  measures.textScale = theme::look().textScale;
  measures.controlSide = theme::control();
  measures.barHeight = SearchPanel::barHeight();
  measures.wayBackWidth = wayBackWidth();
  measures.isSearchOpen = search->isOpen();
  measures.floorCount = floors->count();
  measures.buttons = mapButtons->sizes();
  measures.hasAttribution = !attribution->isEmpty();
  return measures;
}

void VenuePanels::arrange(graphics::Size size, Contents contents) {
  const bool isOther = contents.place != contents_.place || contents.route != contents_.route;
  if (isOther) stop_ = SheetStop::half;
  if ((isOther || !(size == size_)) && std::exchange(glide_, std::nullopt)) draggedHeight_.reset();
  size_ = size;
  contents_ = contents;
  PanelMeasures now = measures();
  contentsHeight_ = sheetHeight(now);
  now.sheetHeight = contentsHeight_;
  const PanelPlaces places = placePanels(now);
  place(*backPanel_, places.wayBack);
  back->setFrame(backPanel_->bounds());
  placeSearch(places.search);
  placeSheet(places);
  place(*floors, places.floors);
  floors->arrange(places.floors.size.height);
  place(*mapButtons, places.buttons);
  mapButtons->arrange(places.buttons.size);
  placeAttribution(places.attribution);
  placeHelp();
  insets_ = places.free;
}

void VenuePanels::placeSearch(const graphics::Rect& room) {
  const double height = search->arrange(room.size.width, room.size.height);
  search->setFrame({room.origin, {room.size.width, height}});
}

void VenuePanels::placeSheet(const PanelPlaces& places) {
  const bool showsRoute = contents_.route && !contents_.place;
  graphics::Rect inner = places.sheet;
  if (hasSheet()) {
    inner.origin.y += handleStrip;
    inner.size.height = std::max(0.0, inner.size.height - handleStrip);
  }
  place(*paper_, hasSheet() ? places.sheet : graphics::Rect{});
  place(*handle, places.handle);
  place(*card, contents_.place ? inner : graphics::Rect{});
  place(*route, showsRoute ? inner : graphics::Rect{});
  card->setFlat(hasSheet());
  route->setFlat(hasSheet());
}

// Places the line at the lower end of its room, beside the logo or above the sheet.
void VenuePanels::placeAttribution(const graphics::Rect& room) {
  attribution->setHidden(room.size.width <= 0);
  if (attribution->isHidden()) return;
  const graphics::Size line = attribution->arrange(room.size);
  const double x = isRightToLeft_ ? room.minX() : room.maxX() - line.width;
  attribution->setFrame({{x, room.maxY() - line.height}, line});
}

void VenuePanels::placeHelp() {
  const graphics::Size box = help->arrange(size_);
  help->setFrame(
      {{(size_.width - box.width) / 2, std::max(leastMargin, (size_.height - box.height) / 2)},
       box});
}

}  // namespace orivanta::viewer
