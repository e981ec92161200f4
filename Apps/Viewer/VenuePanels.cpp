#include "Apps/Viewer/VenuePanels.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Attribution.hpp"
#include "Source/UI/Display/CameraPose.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double mostBackShare = 0.3;  // of the window's width, for the text of the back button
constexpr double leastMargin = 12;     // points
constexpr double glideSeconds = 0.25;

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

// --- Sheet

void VenuePanels::connectHandle() {
  handle->action = [this] { openFurther(); };
  handle->moved = [this](int steps) {
    const double before = contentsHeight_;
    changeStop(steps);
    glideFrom(before);
  };
  handle->dragged = [this](double up) { drag(up); };
  handle->released = [this] { endDrag(); };
  for (view::View* const part :
       {static_cast<view::View*>(card.get()), static_cast<view::View*>(route.get())})
    makeDraggable(
        *part,
        [this](double up) {
          if (hasSheet()) drag(up);
        },
        [this] {
          if (hasSheet()) endDrag();
        });
}

// Moves the sheet from a former height to the one at which it was arranged.
void VenuePanels::glideFrom(double height) {
  if (isReduced_ || height == contentsHeight_) return;
  glide_ = Glide{height, contentsHeight_, std::nullopt};
  draggedHeight_ = height;
  if (layoutChanged) layoutChanged();
}

void VenuePanels::advance(double time) {
  if (!glide_) return;
  if (!glide_->start) glide_->start = time;
  const double share = std::min(1.0, (time - *glide_->start) / glideSeconds);
  draggedHeight_ = glide_->from + (glide_->to - glide_->from) * eased(share);
  if (share >= 1) {
    glide_.reset();
    draggedHeight_.reset();
  }
  if (layoutChanged) layoutChanged();
}

void VenuePanels::drag(double up) {
  glide_.reset();
  if (!dragStart_) dragStart_ = contentsHeight_;
  draggedHeight_ = std::max(0.0, *dragStart_ + up);
  if (layoutChanged) layoutChanged();
}

// Moves the sheet to the nearest stop.
void VenuePanels::endDrag() {
  dragStart_.reset();
  const auto dragged = std::exchange(draggedHeight_, std::nullopt);
  if (!dragged) return;
  PanelMeasures now = measures();
  const auto away = [&](SheetStop stop) {
    const SheetRoom room = sheetRoom(now, stop);
    return std::abs(arrangeContents(room.width, room.most) - *dragged);
  };
  stop_ = std::min({SheetStop::peek, SheetStop::half, SheetStop::full},
                   [&](SheetStop one, SheetStop other) { return away(one) < away(other); });
  if (layoutChanged) layoutChanged();
  glideFrom(*dragged);
}

void VenuePanels::changeStop(int steps) {
  const int stop = std::clamp(static_cast<int>(stop_) + steps, static_cast<int>(SheetStop::peek),
                              static_cast<int>(SheetStop::full));
  stop_ = static_cast<SheetStop>(stop);
  if (std::exchange(glide_, std::nullopt)) draggedHeight_.reset();
  if (layoutChanged) layoutChanged();
}

// Goes to the next stop that changes the height; after the last one, to the first one.
void VenuePanels::openFurther() {
  const double before = contentsHeight_;
  for (int tries = 0; tries < 3 && contentsHeight_ == before; ++tries)
    changeStop(stop_ == SheetStop::full ? -2 : 1);
  glideFrom(before);
}

// Arranges the card or the route. Returns its height.
double VenuePanels::arrangeContents(double width, double most) {
  const bool isSmall = hasSheet() && stop_ != SheetStop::full;
  if (contents_.place) return card->arrange(width, most, isSmall);
  return contents_.route ? route->arrange(width, most) : 0;
}

double VenuePanels::sheetHeight(const PanelMeasures& measures) {
  SheetRoom room = sheetRoom(measures, stop_);
  const double whole = sheetRoom(measures, SheetStop::full).most;
  if (draggedHeight_) room.most = std::min(*draggedHeight_, whole);
  const double needed = arrangeContents(room.width, room.most);
  return draggedHeight_ ? std::max(needed, room.most) : needed;
}

// --- Places

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
