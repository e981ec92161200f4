#include "Apps/Viewer/PanelLayout.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/Theme.hpp"

namespace orivanta::viewer {

namespace {

using graphics::Rect;
using graphics::Size;

constexpr double gap = 12;  // points
constexpr double narrowMargin = 12;
constexpr double backGap = 8;
constexpr double columnShare = 0.27;  // of the window's width
constexpr double mostColumnShare = 0.45;
constexpr double leastColumn = 344;  // for the usual size of text
constexpr double mostColumn = 440;
constexpr double mostSheet = 720;
constexpr double halfShare = 0.5;   // of the window's height
constexpr double handleTouch = 44;  // height of the handle
constexpr double fewFloors = 5;     // are visible beside the buttons
constexpr double inset = 4;         // around floors and buttons in their panels
constexpr double logoWidth = 88;    // of the map view, at the lower right, with the space around it
constexpr double logoHeight = 36;
constexpr double compassHeight = 56;  // of the map view, at the upper right
constexpr double attributionGap = 8;
constexpr double leastFree = 200;       // height of the map that counts as not covered
constexpr double leastFreeShare = 0.3;  // of the window, if that is less
constexpr double largeSide = 1440;      // shorter side of windows that are larger than usual
constexpr double mostGrowth = 1.6;

class Placing {
 public:
  explicit Placing(const PanelMeasures& measures)
      : in_(measures),
        window_(measures.window),
        hasSheet_(hasBottomSheet(measures.window)),
        margin_(hasSheet_ ? narrowMargin : theme::margin) {}

  SheetRoom roomFor(SheetStop stop) const {
    if (!hasSheet_) return {columnWidth(), window_.height - belowBar() - lowerMargin()};
    const double whole = window_.height - belowBar() - handleTouch;
    const double half = std::min(whole, window_.height * halfShare - handleStrip);
    const double most = stop == SheetStop::full ? whole : stop == SheetStop::half ? half : 0;
    return {std::min(window_.width, mostSheet * in_.textScale), most};
  }

  PanelPlaces places() {
    placeSearch();
    placeSheet();
    placeFloors();
    placeAttribution();
    out_.free = freeEdges();
    if (in_.isRightToLeft) mirror();
    return out_;
  }

 private:
  double columnWidth() const {
    const double scale = in_.textScale;
    const double wanted =
        std::clamp(columnShare * window_.width, leastColumn * scale, mostColumn * scale);
    return std::min(wanted, std::max(leastColumn, mostColumnShare * window_.width));
  }

  double belowBar() const { return margin_ + in_.barHeight + gap; }
  double lowerMargin() const { return in_.isRightToLeft ? std::max(logoHeight, margin_) : margin_; }
  bool showsSheet() const { return in_.sheetHeight > 0 && !in_.isSearchOpen; }

  // The back button is before the search field, which replaces it while open.
  void placeSearch() {
    double indent = 0;
    if (in_.wayBackWidth > 0 && !in_.isSearchOpen) {
      out_.wayBack = {{margin_, margin_}, {in_.wayBackWidth, in_.barHeight}};
      indent = in_.wayBackWidth + backGap;
    }
    const double width = (hasSheet_ ? window_.width - 2 * margin_ : columnWidth()) - indent;
    const bool isAboveAttribution = hasSheet_ && in_.hasAttribution;
    const double below =
        isAboveAttribution ? in_.controlSide + attributionGap + gap : lowerMargin();
    const double height = in_.isSearchOpen ? window_.height - margin_ - below : in_.barHeight;
    out_.search = {{margin_ + indent, margin_}, {width, height}};
  }

  void placeSheet() {
    if (!showsSheet()) return;
    const SheetRoom room = roomFor(SheetStop::full);
    const double height = std::min(in_.sheetHeight, room.most);
    if (!hasSheet_) {
      out_.sheet = {{margin_, belowBar()}, {room.width, height}};
      return;
    }
    const double left = (window_.width - room.width) / 2;
    const double top = window_.height - height - handleStrip;
    out_.sheet = {{left, top}, {room.width, height + handleStrip}};
    out_.handle = {{left, top + handleStrip - handleTouch}, {room.width, handleTouch}};
  }

  double sheetTop() const {
    return hasSheet_ && showsSheet() ? out_.handle.minY() : window_.height;
  }

  double heightOfFloors(double count) const { return count * in_.controlSide + 2 * inset; }

  // The floors are in the middle of the other edge, the buttons below them.
  void placeFloors() {
    if (hasSheet_ && in_.isSearchOpen) return;
    const double width = in_.controlSide + 2 * inset;
    const double x = window_.width - margin_ - width;
    const bool isCovered = sheetTop() < window_.height;  // the logo
    const double bottom = isCovered ? sheetTop() - gap : window_.height - margin_ - logoHeight;
    const double top = hasSheet_ ? belowBar() : margin_;
    const auto count = static_cast<double>(in_.floorCount);
    const double least = heightOfFloors(std::min(count, fewFloors));
    double lowest = bottom;
    for (const Size& buttons : in_.buttons) {
      if (bottom - top < least + gap + buttons.height) continue;
      out_.buttons = {{x, bottom - buttons.height}, buttons};
      lowest = out_.buttons.minY() - gap;
      break;
    }
    const double fitting =
        std::min(count, std::floor((lowest - top - 2 * inset) / in_.controlSide));
    if (fitting < 1) return;
    const double height = heightOfFloors(fitting);
    const double highest = hasSheet_ ? top : std::min(top + compassHeight, lowest - height);
    const double middle = (top + bottom - height) / 2;
    out_.floors = {{x, std::clamp(middle, std::max(top, highest), lowest - height)},
                   {width, height}};
  }

  // The attribution is at the lower edge beside the logo, or above a sheet.
  void placeAttribution() {
    if (!in_.hasAttribution) return;
    const bool isBesideColumn = !hasSheet_ && (showsSheet() || in_.isSearchOpen);
    // The logo is on the right even if the panels are mirrored, which comes later.
    const double floors = in_.controlSide + 2 * inset + margin_ + gap;
    const double start = in_.isRightToLeft ? logoWidth : narrowMargin;
    const double left = isBesideColumn ? std::max(margin_ + columnWidth() + gap, start) : start;
    const double right = window_.width - (in_.isRightToLeft ? floors : std::max(logoWidth, floors));
    const bool isBelowSearch = in_.isSearchOpen && hasSheet_;
    const double top = isBelowSearch ? out_.search.maxY() : belowBar();
    const double bottom = std::min(sheetTop(), window_.height - attributionGap);
    if (bottom - top < (isBelowSearch ? 1 : 2) * in_.controlSide || right <= left) return;
    const double height = std::min(bottom - top, window_.height / 2);
    out_.attribution = {{left, bottom - height}, {right - left, height}};
  }

  Insets freeEdges() const {
    const double side = in_.controlSide + 2 * inset + margin_ + 8;
    Insets edges{8, 8, side, 8};
    if (hasSheet_ || !showsSheet()) edges.top = belowBar() + 8;
    if (!hasSheet_ && showsSheet()) edges.left = margin_ + columnWidth() + gap;
    if (hasSheet_ && showsSheet()) edges.bottom = window_.height - sheetTop() + gap;
    if (in_.hasAttribution) edges.bottom += attributionGap + gap;
    const double least = std::min(leastFree, window_.height * leastFreeShare);
    edges.bottom = std::min(edges.bottom, window_.height - edges.top - least);
    return edges;
  }

  void mirror() {
    for (Rect* rect : {&out_.wayBack, &out_.search, &out_.sheet, &out_.handle, &out_.floors,
                       &out_.buttons, &out_.attribution})
      if (rect->size.width > 0) rect->origin.x = window_.width - rect->maxX();
    std::swap(out_.free.left, out_.free.right);
  }

  const PanelMeasures& in_;
  const Size window_;
  const bool hasSheet_;  // at the lower edge
  const double margin_;
  PanelPlaces out_;
};

}  // namespace

bool hasBottomSheet(Size window) {
  return window.width < theme::leastWideWidth || window.height > window.width;
}

double textGrowth(Size window) {
  return std::clamp(std::min(window.width, window.height) / largeSide, 1.0, mostGrowth);
}

SheetRoom sheetRoom(const PanelMeasures& measures, SheetStop stop) {
  return Placing(measures).roomFor(stop);
}

PanelPlaces placePanels(const PanelMeasures& measures) { return Placing(measures).places(); }

}  // namespace orivanta::viewer
