#include "Source/UI/Labels/LabelPass.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "Source/UI/Labels/LabelRank.hpp"

namespace orivanta {

namespace {

constexpr double keepFactor = 0.9;        // of scales and sizes, for shown labels
constexpr double lookAheadOfShown = 0.2;  // seconds; the time of a fade
constexpr double timeOfFresh = 0.5;       // seconds
constexpr double lookAheadOfNew = 0.6;    // seconds
constexpr double lookAheadToEdge = 0.8;   // the same, and the time of a fade
constexpr double mostShareOfNew = 0.3;    // of a name, on other areas
constexpr double mostShareOfShown = 0.45;

constexpr std::array<LabelSide, 4> sides{LabelSide::right, LabelSide::left, LabelSide::below,
                                         LabelSide::above};

}  // namespace

void LabelPass::hide(LabelPart& part, double time) {
  if (part.isShown) part.wentAt = time;
  part.isShown = false;
  part.isWaiting = false;
  part.freePasses = 0;
}

void LabelPass::run(const std::vector<PlaceLabel>& labels, std::vector<LabelState>& states,
                    const std::vector<LabelOrder>& order, const LabelFrame& frame,
                    const MapMotion& motion, LabelPassKind kind) {
  labels_ = &labels;
  states_ = &states;
  frame_ = &frame;
  plane_ = textPlane(frame);
  shownWay_ = motion.in(lookAheadOfShown);
  soonWay_ = motion.in(lookAheadOfNew);
  for (std::size_t i = 0; i < edgeWays_.size(); ++i)
    edgeWays_[i] = motion.in(lookAheadToEdge * edgeShares[i]);
  kind_ = kind;
  reset(labels, states);
  for (const LabelOrder& next : order) {
    if (!next.isName) prepare(next.index);
    LabelState& state = states[next.index];
    if (state.isFresh && (next.isName ? state.name : state.symbol).isShown) place(next);
  }
  for (const LabelOrder& next : order)
    if (!next.isName && labels[next.index].symbolFirst &&
        labels[next.index].rank >= leastLeadingRank)
      place(next);
  for (const LabelOrder& next : order) place(next);
}

void LabelPass::prepare(std::size_t index) {
  LabelState& state = (*states_)[index];
  state.isFresh = state.isShown() && frame_->time - state.cameAt < timeOfFresh;
  state.symbol.isPlaced = false;
  state.name.isPlaced = false;
  if (kind_ != LabelPassKind::shown) chooseMode(index);
}

void LabelPass::place(const LabelOrder& next) {
  LabelState& state = (*states_)[next.index];
  LabelPart& part = next.isName ? state.name : state.symbol;
  if (part.isPlaced) return;
  part.isPlaced = true;
  if (next.isName)
    placeName(next.index);
  else
    placeSymbol(next.index);
}

void LabelPass::reset(const std::vector<PlaceLabel>& labels,
                      const std::vector<LabelState>& states) {
  taken_.reset(frame_->view);
  soon_.reset(frame_->view);
  leaving_.reset(frame_->view);
  for (const graphics::Rect& panel : frame_->panels) taken_.add(panel, LabelGrid::nobody);
  for (const graphics::Rect& mark : frame_->marks) taken_.add(mark, LabelGrid::nobody);
  if (kind_ == LabelPassKind::shown) return;
  for (const graphics::Rect& mark : frame_->marks)
    soon_.add(soonWay_.after(mark, {mark.midX(), mark.midY()}), LabelGrid::nobody);
  for (std::size_t i = 0; i < states.size(); ++i) {
    const LabelState& state = states[i];
    if (!state.symbol.isShown && state.symbol.opacity > 0)
      leaving_.add(symbolRect(labels[i], state.point), i);
    if (!state.name.isShown && state.name.opacity > 0)
      leaving_.add(nameRect(labels[i], state.form, state.point), i);
  }
}

// Returns the place with the smaller or the larger of its scale now and a short time later.
ProjectedPlace LabelPass::placeAtScale(std::size_t index, bool isSmaller) const {
  ProjectedPlace place = frame_->places[index];
  const double growth = (*states_)[index].growth;
  const double factor = std::clamp(std::exp(growth * lookAheadOfNew), 0.1, 10.0);
  place.pointsPerUnit *= isSmaller ? std::min(1.0, factor) : std::max(1.0, factor);
  return place;
}

// Decides whether the name is inside the area or beside the symbol.
void LabelPass::chooseMode(std::size_t index) {
  const PlaceLabel& label = (*labels_)[index];
  LabelState& state = (*states_)[index];
  const ProjectedPlace& place = frame_->places[index];
  if (!label.room || label.names.empty() || (label.symbolFirst && !label.insideOnly)) return;
  if (state.isInside && state.name.isShown) {
    if (!fitsInside(label, state.form.lines, place, plane_, keepFactor))
      hide(state.name, frame_->time);
    return;
  }
  const ProjectedPlace later = placeAtScale(index, false);
  std::optional<std::size_t> lines;
  if (later.pointsPerUnit * frame_->unitsPerMeter >= label.scales.inside)
    lines = linesInside(label, later, plane_);
  const bool isVisible = state.symbol.isVisible() || state.name.isVisible();
  if (lines.has_value() != state.isInside && isVisible) {
    if (state.isFresh) return;
    hide(state.symbol, frame_->time);
    hide(state.name, frame_->time);
  } else if (!state.name.isVisible()) {
    state.isInside = lines.has_value();
    if (lines) state.form = {LabelSide::center, *lines};
  }
}

bool LabelPass::isAtScale(const LabelPart& part, std::size_t index, double scale) const {
  const ProjectedPlace place = part.isShown ? frame_->places[index] : placeAtScale(index, true);
  const double factor = part.isShown ? keepFactor : 1.0;
  return place.pointsPerUnit * frame_->unitsPerMeter >= scale * factor;
}

void LabelPass::placeSymbol(std::size_t index) {
  const PlaceLabel& label = (*labels_)[index];
  LabelState& state = (*states_)[index];
  LabelPart& part = state.symbol;
  if (!part.isShown && kind_ == LabelPassKind::shown) return;
  if (!(label.symbolSize > 0) || label.insideOnly) return;
  const graphics::Rect rect = symbolRect(label, frame_->places[index].point);
  const bool isWanted = !state.isInside && isAtScale(part, index, label.scales.symbol);
  settle(part, rect, index, isWanted && isFree(part, rect, index));
}

bool LabelPass::isNameWanted(std::size_t index) const {
  const PlaceLabel& label = (*labels_)[index];
  const LabelState& state = (*states_)[index];
  if (label.names.empty() || (label.insideOnly && !state.isInside)) return false;
  const double scale = state.isInside ? label.scales.inside : label.scales.name;
  if (!isAtScale(state.name, index, scale)) return false;
  if (state.isInside) return !state.symbol.isVisible();
  if (!(label.symbolSize > 0)) return true;
  if (state.name.isShown) return state.symbol.isShown;
  const graphics::Point anchor = frame_->places[index].point;
  return (state.symbol.isShown || state.symbol.isWaiting) &&
         willStayClear(symbolRect(label, anchor), anchor);
}

void LabelPass::placeName(std::size_t index) {
  const PlaceLabel& label = (*labels_)[index];
  LabelPart& part = (*states_)[index].name;
  if (label.names.empty() || (!part.isShown && kind_ == LabelPassKind::shown)) return;
  LabelForm& form = (*states_)[index].form;
  const graphics::Point anchor = frame_->places[index].point;
  bool isPlaced = isNameWanted(index);
  if (isPlaced && part.isShown) {
    const graphics::Rect rect = nameRect(label, form, anchor);
    isPlaced = isFree(part, rect, index) &&
               (form.side == LabelSide::center || kind_ != LabelPassKind::all ||
                shareOnOthers(rect, index) < mostShareOfShown);
  } else if (isPlaced) {
    isPlaced = part.opacity == 0 && chooseSide(index);
  }
  settle(part, nameRect(label, form, anchor), index, isPlaced);
}

// Sets the form of a hidden name. Returns false if no side is free.
bool LabelPass::chooseSide(std::size_t index) {
  const PlaceLabel& label = (*labels_)[index];
  LabelState& state = (*states_)[index];
  const graphics::Point anchor = frame_->places[index].point;
  if (state.isInside)
    return fitsInside(label, state.form.lines, placeAtScale(index, true), plane_, 1) &&
           isFree(state.name, nameRect(label, state.form, anchor), index);
  const bool isCentered = !(label.symbolSize > 0);
  for (const LabelSide side : sides) {
    const LabelForm form{isCentered ? LabelSide::center : side, linesBeside(label)};
    const graphics::Rect rect = nameRect(label, form, anchor);
    if (isFree(state.name, rect, index) && shareOnOthers(rect, index) < mostShareOfNew) {
      if (!(form == state.form)) state.name.freePasses = 0;
      state.form = form;
      return true;
    }
    if (isCentered) break;
  }
  return false;
}

double LabelPass::shareOnOthers(const graphics::Rect& rect, std::size_t index) const {
  return frame_->shareOnOtherAreas ? frame_->shareOnOtherAreas(rect, index) : 0.0;
}

}  // namespace orivanta
