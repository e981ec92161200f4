#include "Apps/Viewer/VenuePanels.hpp"

#include <algorithm>
#include <utility>

#include "Source/Attribution.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double columnWidth = 344;  // points
constexpr double gap = 12;
constexpr double narrowMargin = 12;
constexpr double mostSheetShare = 0.5;  // of a phone's height
constexpr double floorsWidth = theme::controlSize + 8;
constexpr double fewFloorsHeight = 4 * theme::controlSize + 8;  // visible beside the buttons
constexpr double barHeight = 48;  // of the closed search field and the buttons beside it
constexpr double backGap = 8;
constexpr double logoWidth = 88;  // of the map view, at the lower right, with the space around it
constexpr double logoHeight = 36;
constexpr double attributionGap = 8;

}  // namespace

VenuePanels::VenuePanels(const Venue& venue, const guidance::InterfaceTexts& texts)
    : search(std::make_shared<SearchPanel>(venue, texts)),
      card(std::make_shared<PlaceCard>(texts)),
      route(std::make_shared<RoutePanel>(texts)),
      floors(std::make_shared<FloorSwitch>(*venue.maps)),
      attribution(std::make_shared<AttributionLine>(attributionText(venue))),
      help(std::make_shared<KeyHelp>(texts)),
      mapButtons(std::make_shared<MapButtons>()),
      back(std::make_shared<Button>(ButtonLook::plain,
                                    "\u2039  " + texts.text("interface.venues.back"))),
      backPanel_(std::make_shared<Panel>()),
      isRightToLeft_(texts.isRightToLeft()) {
  backPanel_->addSubview(back);
  help->setHidden(true);
}

std::vector<std::shared_ptr<view::View>> VenuePanels::all() const {
  return {attribution, mapButtons, backPanel_, floors, card, route, search, help};
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

bool VenuePanels::isWide() const { return size_.width >= theme::leastWideWidth; }

double VenuePanels::margin() const { return isWide() ? theme::margin : narrowMargin; }

void VenuePanels::arrange(graphics::Size size, Contents contents) {
  size_ = size;
  contents_ = contents;
  arrangeSearch();
  arrangeSheets();
  arrangeFloors();
  arrangeAttribution();
  arrangeHelp();
  insets_ = freeEdges();
  if (!isRightToLeft_) return;
  std::swap(insets_.left, insets_.right);
  for (const auto& panel : all()) {
    graphics::Rect frame = panel->frame();
    frame.origin.x = size_.width - frame.maxX();
    panel->setFrame(frame);
  }
}

void VenuePanels::arrangeSearch() {
  const double indent = arrangeWayBack();
  const double width = (isWide() ? columnWidth : size_.width - 2 * margin()) - indent;
  const double height = search->arrange(width, size_.height - 2 * margin());
  search->setFrame({{margin() + indent, margin()}, {width, height}});
}

// Places the back button before the search field, which replaces it while open. Returns its width
// with the gap.
double VenuePanels::arrangeWayBack() {
  backPanel_->setHidden(!contents_.wayBack || search->isOpen());
  help->setWayBack(contents_.wayBack);
  if (backPanel_->isHidden()) return 0;
  const double width = back->fittingWidth();
  backPanel_->setFrame({{margin(), margin()}, {width, barHeight}});
  back->setFrame(backPanel_->bounds());
  return width + backGap;
}

// Places the card or the route in the column below the search field, or at the lower edge.
void VenuePanels::arrangeSheets() {
  const double width = isWide() ? columnWidth : size_.width - 2 * margin();
  const double top = margin() + barHeight + gap;
  const bool showsRoute = contents_.route && !contents_.place;
  card->setHidden(!contents_.place || search->isOpen());
  route->setHidden(!showsRoute || search->isOpen());
  const auto place = [&](view::View& sheet, double height) {
    const double y = isWide() ? top : size_.height - margin() - height;
    sheet.setFrame({{margin(), y}, {width, height}});
  };
  const double bottom = isRightToLeft_ ? std::max(logoHeight, margin()) : margin();
  const double most = isWide() ? size_.height - top - bottom : size_.height * mostSheetShare;
  if (contents_.place) place(*card, card->arrange(width, most, !isWide()));
  if (showsRoute) place(*route, route->arrange(width, most));
}

// Returns the upper edge of the card or the route at the lower edge of a phone, less the gap, or
// else the lower edge.
double VenuePanels::bottomAboveSheets(double gapAbove) const {
  double bottom = size_.height - margin();
  for (const view::View* sheet :
       {static_cast<view::View*>(card.get()), static_cast<view::View*>(route.get())})
    if (!sheet->isHidden()) bottom = std::min(bottom, sheet->frame().minY() - gapAbove);
  return bottom;
}

// Places the floors in the middle of the other edge, and the map's buttons below them if there is
// room.
void VenuePanels::arrangeFloors() {
  const double x = size_.width - margin() - floorsWidth;
  const double top = isWide() ? margin() : margin() + barHeight + gap;
  const double bottom = isWide() ? size_.height - margin() : bottomAboveSheets(gap);
  const graphics::Size buttons = mapButtons->arrange();
  const double leastFloors = std::min(floors->wholeHeight(), fewFloorsHeight);
  mapButtons->setHidden(!isWide() ||
                        bottom - top < leastFloors + buttons.height + logoHeight + gap);
  mapButtons->setFrame({{x, bottom - logoHeight - buttons.height}, buttons});
  const double lowest = mapButtons->isHidden()
                            ? std::min(bottom, size_.height - margin() - logoHeight)
                            : mapButtons->frame().minY() - gap;
  const graphics::Size size = floors->arrange(lowest - top);
  const double y =
      std::clamp((top + bottom - size.height) / 2, top, std::max(top, lowest - size.height));
  floors->setFrame({{x, y}, size});
  floors->setHidden(search->isOpen() && !isWide());
}

// Places it at the lower edge beside the logo; on a phone above the sheet, if there is one.
void VenuePanels::arrangeAttribution() {
  attribution->setHidden(attribution->isEmpty());
  if (attribution->isHidden()) return;
  const bool hasSheet = !card->isHidden() || !route->isHidden();
  const double left =
      isWide() && (hasSheet || search->isOpen()) ? theme::margin + columnWidth + gap : narrowMargin;
  const double right = size_.width - (isRightToLeft_ ? narrowMargin : logoWidth);
  const double bottom =
      isWide() || !hasSheet ? size_.height - attributionGap : bottomAboveSheets(attributionGap);
  const double room = right - left - (isRightToLeft_ && left < logoWidth ? logoWidth - left : 0);
  const graphics::Size line = attribution->arrange({room, bottom / 2});
  attribution->setFrame({{right - line.width, bottom - line.height}, line});
}

void VenuePanels::arrangeHelp() {
  const graphics::Size box = help->arrange(size_);
  help->setFrame(
      {{(size_.width - box.width) / 2, std::max(margin(), (size_.height - box.height) / 2)}, box});
}

Insets VenuePanels::freeEdges() const {
  Insets edges{8, 8, 76, 8};
  const bool hasSheet = contents_.place || contents_.route;
  if (isWide() && hasSheet) edges.left = theme::margin + columnWidth + gap;
  if (isWide() && !hasSheet) edges.top = 72;
  if (!isWide()) {
    edges.top = 72;
    edges.right = narrowMargin + floorsWidth + 4;
    const view::View& sheet = contents_.place ? static_cast<view::View&>(*card) : *route;
    if (hasSheet) edges.bottom = size_.height - sheet.frame().minY() + gap;
  }
  if (!attribution->isHidden()) edges.bottom += AttributionLine::closedHeight;
  return edges;
}

}  // namespace orivanta::viewer
