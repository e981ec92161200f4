// Arranges the panels of a venue: beside the map on a wide screen, above and below it on a phone.
#include <algorithm>
#include <array>
#include <utility>

#include "Apps/Viewer/VenueView.hpp"

namespace orivanta::viewer {

namespace {

constexpr double columnWidth = 344;  // points
constexpr double gap = 12;
constexpr double narrowMargin = 12;
constexpr double mostSheetShare = 0.5;  // of a phone's height

struct MapButton {
  const char* sign;
  const char* key;
};
constexpr std::array mapButtonSigns{MapButton{"+", "+"}, MapButton{"\u2212", "-"},
                                    MapButton{"\u26F6", "f"}, MapButton{"?", "?"}};
constexpr double buttonInset = 4;
constexpr int fewFloors = 4;      // visible at least, beside the buttons
constexpr double barHeight = 48;  // of the closed search field and the buttons beside it
constexpr double backGap = 8;
constexpr double logoWidth = 88;  // of the map view, with the space around it
constexpr double attributionGap = 8;

}  // namespace

void VenueView::addMapButtons() {
  for (const MapButton& button : mapButtonSigns) {
    mapButtonList_.push_back(std::make_shared<Button>(ButtonLook::plain, button.sign, 19));
    mapButtonList_.back()->action = [this, &button] { handleText(button.key); };
    mapButtons_->addSubview(mapButtonList_.back());
  }
}

void VenueView::addWayBack() {
  backButton_ = std::make_shared<Button>(ButtonLook::plain, "\u2039  Venues");
  backButton_->action = [this] { wayBack(); };
  backPanel_->addSubview(backButton_);
}

void VenueView::arrange(graphics::Size size, double scale) {
  const bool isResized = !(size == bounds().size);
  const bool isRescaled = std::exchange(scale_, scale) != scale;
  setFrame({{0, 0}, size});
  resizeMap(isResized);
  arrangePanels();
  if (isLoaded_ && (isResized || isRescaled)) showAnew();
}

void VenueView::resizeMap(bool overlayToo) {
  mapView_->setFrame(bounds());
  mapView_->layoutIfNeeded();
  if (overlayToo) mapView_->renewOverlay();
}

// Updates what depends on the size or the scale of the view.
void VenueView::showAnew() {
  if (routeOverlay_) routeOverlay_->show(scale_);
  floorShown();
  camera().setPose(camera().pose());
}

void VenueView::arrangePanels() {
  const graphics::Size size = bounds().size;
  if (size.width <= 0) return;
  const bool isWide = size.width >= theme::leastWideWidth;
  const double margin = isWide ? theme::margin : narrowMargin;
  const double indent = arrangeWayBack(margin);
  const double searchWidth = (isWide ? columnWidth : size.width - 2 * margin) - indent;
  const double searchHeight = search_->arrange(searchWidth, size.height - 2 * margin);
  search_->setFrame({{margin + indent, margin}, {searchWidth, searchHeight}});
  arrangeSheets(isWide);
  arrangeMapButtons(isWide);
  arrangeAttribution(isWide);
  const graphics::Size help = help_->arrange(size);
  help_->setFrame(
      {{(size.width - help.width) / 2, std::max(margin, (size.height - help.height) / 2)}, help});
  updateInsets(isWide);
  coverLabels();
}

void VenueView::coverLabels() {
  std::vector<graphics::Rect> covered;
  for (const view::View* panel : std::initializer_list<const view::View*>{
           attribution_.get(), mapButtons_.get(), backPanel_.get(), floors_.get(), card_.get(),
           routePanel_.get(), search_.get(), help_.get()})
    if (!panel->isHidden()) covered.push_back(panel->frame());
  labels_->setCovered(std::move(covered));
}

// Places the back button before the search field, which replaces it while open. Returns its width
// with the gap.
double VenueView::arrangeWayBack(double margin) {
  backPanel_->setHidden(!wayBack || search_->isOpen());
  help_->setWayBack(wayBack != nullptr);
  if (backPanel_->isHidden()) return 0;
  const double width = backButton_->fittingWidth();
  backPanel_->setFrame({{margin, margin}, {width, barHeight}});
  backButton_->setFrame(backPanel_->bounds());
  return width + backGap;
}

// Places the card or the route in the column below the search field, or at the lower edge.
void VenueView::arrangeSheets(bool isWide) {
  const graphics::Size size = bounds().size;
  const double margin = isWide ? theme::margin : narrowMargin;
  const double width = isWide ? columnWidth : size.width - 2 * margin;
  const double top = search_->frame().minY() + barHeight + gap;
  const bool showsRoute = hasStops() && !selected_;
  card_->setHidden(!selected_ || search_->isOpen());
  routePanel_->setHidden(!showsRoute || search_->isOpen());
  const auto place = [&](view::View& sheet, double height) {
    const double y = isWide ? top : size.height - margin - height;
    sheet.setFrame({{margin, y}, {width, height}});
  };
  const double most = isWide ? size.height - top - margin : size.height * mostSheetShare;
  if (selected_) place(*card_, card_->arrange(width, most, !isWide));
  if (showsRoute) place(*routePanel_, routePanel_->arrange(width, most));
}

void VenueView::arrangeMapButtons(bool isWide) {
  const graphics::Size size = bounds().size;
  const double margin = isWide ? theme::margin : narrowMargin;
  constexpr double side = theme::controlSize;
  const double buttonsHeight = side * static_cast<double>(mapButtonList_.size()) + 2 * buttonInset;
  double top = buttonInset;
  for (const auto& button : mapButtonList_) {
    button->setFrame({{buttonInset, top}, {side, side}});
    top += side;
  }
  const double x = size.width - margin - side - 2 * buttonInset;
  double freeTop = margin;
  double freeBottom = size.height - margin;
  if (!isWide) {
    freeTop += barHeight + gap;
    for (const view::View* sheet :
         {static_cast<view::View*>(card_.get()), static_cast<view::View*>(routePanel_.get())})
      if (!sheet->isHidden()) freeBottom = std::min(freeBottom, sheet->frame().minY() - gap);
  }
  const double logo = 36;  // of the map view, below the buttons
  const double leastFloors = std::min(floors_->wholeHeight(), fewFloors * side + 2 * buttonInset);
  mapButtons_->setHidden(!isWide ||
                         freeBottom - freeTop < leastFloors + buttonsHeight + logo + gap);
  mapButtons_->setFrame(
      {{x, freeBottom - logo - buttonsHeight}, {side + 2 * buttonInset, buttonsHeight}});
  const double lowest = mapButtons_->isHidden() ? std::min(freeBottom, size.height - margin - logo)
                                                : mapButtons_->frame().minY() - gap;
  const graphics::Size floors = floors_->arrange(lowest - freeTop);
  const double y = std::clamp((freeTop + freeBottom - floors.height) / 2, freeTop,
                              std::max(freeTop, lowest - floors.height));
  floors_->setFrame({{x, y}, floors});
  floors_->setHidden(search_->isOpen() && !isWide);
}

// Places it at the lower edge beside the logo; on a phone above the sheet, if there is one.
void VenueView::arrangeAttribution(bool isWide) {
  attribution_->setHidden(attribution_->isEmpty());
  if (attribution_->isHidden()) return;
  const graphics::Size size = bounds().size;
  const bool hasSheet = !card_->isHidden() || !routePanel_->isHidden();
  const double left =
      isWide && (hasSheet || search_->isOpen()) ? theme::margin + columnWidth + gap : narrowMargin;
  const double right = size.width - logoWidth;
  double bottom = size.height - attributionGap;
  if (!isWide && hasSheet)
    bottom = (card_->isHidden() ? routePanel_->frame() : card_->frame()).minY() - attributionGap;
  const graphics::Size line = attribution_->arrange({right - left, bottom / 2});
  attribution_->setFrame({{right - line.width, bottom - line.height}, line});
}

void VenueView::updateInsets(bool isWide) {
  const graphics::Size size = bounds().size;
  Insets insets{8, 8, 76, 8};
  const bool hasSheet = selected_ || hasStops();
  if (isWide && hasSheet) insets.left = theme::margin + columnWidth + gap;
  if (isWide && !hasSheet) insets.top = 72;
  if (!isWide) {
    insets.top = 72;
    insets.right = narrowMargin + theme::controlSize + 2 * buttonInset + 4;
    const view::View& sheet = selected_ ? static_cast<view::View&>(*card_) : *routePanel_;
    if (hasSheet) insets.bottom = size.height - sheet.frame().minY() + gap;
  }
  if (!attribution_->isHidden()) insets.bottom += AttributionLine::closedHeight;
  camera().setInsets(insets);
}

}  // namespace orivanta::viewer
