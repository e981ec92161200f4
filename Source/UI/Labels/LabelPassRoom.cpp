// Which room is free for the parts of labels.
#include <algorithm>

#include "Source/UI/Labels/LabelPass.hpp"

namespace orivanta {

namespace {

constexpr double gapOfNew = 5;           // points
constexpr double marginSoon = 10;        // the same, in the view, points
constexpr double gapSoon = 3;            // where the labels will be, points
constexpr double marginOfNew = 10;       // inside the view, points
constexpr double waitAfterHiding = 0.4;  // seconds
constexpr int leastFreePasses = 2;
constexpr double mostOverlap = 3;  // of parts that fade out with shown ones, points

// Returns whether a rectangle with a margin is in the view and not covered by a panel.
bool isClear(const graphics::Rect& rect, const LabelFrame& frame, double margin) {
  const graphics::Rect room{{rect.origin.x - margin, rect.origin.y - margin},
                            {rect.size.width + 2 * margin, rect.size.height + 2 * margin}};
  return room.minX() >= 0 && room.minY() >= 0 && room.maxX() <= frame.view.width &&
         room.maxY() <= frame.view.height &&
         std::none_of(frame.panels.begin(), frame.panels.end(),
                      [&](const graphics::Rect& panel) { return panel.intersects(room); });
}

}  // namespace

bool LabelPass::isFree(const LabelPart& part, const graphics::Rect& rect, std::size_t index) const {
  if (!(frame_->places[index].pointsPerUnit > 0)) return false;
  const graphics::Point anchor = frame_->places[index].point;
  if (part.isShown)
    return isClear(rect, *frame_, 0) && isClear(shownWay_.after(rect, anchor), *frame_, 0) &&
           !taken_.isOccupied(rect, 0, index);
  if (!isClear(rect, *frame_, marginOfNew) || taken_.isOccupied(rect, gapOfNew, index))
    return false;
  const graphics::Rect later = soonWay_.after(rect, anchor);
  return !soon_.isOccupied(later, gapSoon, index) && willStayClear(rect, anchor);
}

// Returns whether a part that comes now will stay in the view and off the panels.
bool LabelPass::willStayClear(const graphics::Rect& rect, graphics::Point anchor) const {
  for (std::size_t i = 0; i < edgeWays_.size(); ++i)
    if (!isClear(edgeWays_[i].after(rect, anchor), *frame_, marginSoon * edgeShares[i]))
      return false;
  return true;
}

void LabelPass::leave(LabelPart& part, const graphics::Rect& rect, std::size_t index) {
  if (part.isVisible()) leaving_.add(rect, index);
  hide(part, frame_->time);
}

void LabelPass::settle(LabelPart& part, const graphics::Rect& rect, std::size_t index,
                       bool isFree) {
  if (!isFree) return leave(part, rect, index);
  taken_.add(rect, index);
  if (kind_ != LabelPassKind::shown)
    soon_.add(soonWay_.after(rect, frame_->places[index].point), index);
  if (part.isShown) return;
  ++part.freePasses;
  const bool hasWaited = part.freePasses >= leastFreePasses && part.opacity == 0 &&
                         frame_->time - part.wentAt >= waitAfterHiding &&
                         !leaving_.isOccupied(rect, 0, index);
  part.isShown = hasWaited || kind_ == LabelPassKind::atOnce;
  part.isWaiting = !part.isShown;
  if (part.isShown) (*states_)[index].cameAt = frame_->time;
}

void LabelPass::removeCovered(const std::vector<PlaceLabel>& labels,
                              std::vector<LabelState>& states, const LabelFrame& frame) {
  taken_.reset(frame.view);
  for (std::size_t i = 0; i < states.size(); ++i) {
    if (states[i].symbol.isShown) taken_.add(symbolRect(labels[i], states[i].point), i);
    if (states[i].name.isShown) taken_.add(nameRect(labels[i], states[i].form, states[i].point), i);
  }
  leaving_.reset(frame.view);
  for (const graphics::Rect& mark : frame.marks) leaving_.add(mark, LabelGrid::nobody);
  const auto check = [&](LabelPart& part, const graphics::Rect& rect, std::size_t index) {
    if (!isClear(rect, frame, 0) || leaving_.isOccupied(rect, 0, index) ||
        taken_.isOccupied(rect, -std::min(mostOverlap, rect.size.height / 4), index))
      part.opacity = 0;
  };
  for (std::size_t i = 0; i < states.size(); ++i) {
    LabelState& state = states[i];
    if (!state.symbol.isShown && state.symbol.opacity > 0)
      check(state.symbol, symbolRect(labels[i], state.point), i);
    if (!state.name.isShown && state.name.opacity > 0)
      check(state.name, nameRect(labels[i], state.form, state.point), i);
  }
}

}  // namespace orivanta
