// The bottom sheet: dragging, and its height.
#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/VenuePanels.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta::viewer {

namespace {

constexpr double glideSeconds = 0.25;

}  // namespace

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

}  // namespace orivanta::viewer
