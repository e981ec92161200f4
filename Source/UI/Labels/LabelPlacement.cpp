#include "Source/UI/Labels/LabelPlacement.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <tuple>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/UI/Labels/LabelPass.hpp"

namespace orivanta {

namespace {

constexpr double passInterval = 0.1;    // seconds
constexpr double fadeTime = 0.2;        // seconds
constexpr double longestStep = 0.05;    // of a fade, seconds
constexpr double longestMotion = 0.25;  // between frames; beyond it, the velocity is unknown
constexpr double bonusOfShown = 14;
constexpr double keepFactor = 0.9;  // of scales, for shown labels

bool isUsable(const ProjectedPlace& place, graphics::Size view) {
  return place.pointsPerUnit > 0 && std::isfinite(place.pointsPerUnit) &&
         graphics::Rect{{0, 0}, view}.contains(place.point);
}

// Advances the opacity of a part. Returns whether it is changing.
bool fadePart(LabelPart& part, double elapsed) {
  const double goal = part.isShown ? 1.0 : 0.0;
  const double step = elapsed / fadeTime;
  part.opacity = goal > part.opacity ? std::min(goal, part.opacity + step)
                                     : std::max(goal, part.opacity - step);
  return part.opacity != goal || part.isWaiting;
}

}  // namespace

LabelPlacement::LabelPlacement() : pass_(std::make_unique<LabelPass>()) {}

LabelPlacement::~LabelPlacement() = default;

void LabelPlacement::setLabels(std::vector<PlaceLabel> labels) {
  labels_ = std::move(labels);
  for (PlaceLabel& label : labels_)
    if (!std::isfinite(label.rank)) label.rank = 0;
  states_.assign(labels_.size(), {});
  order_.clear();
  ranked_.resize(labels_.size());
  std::iota(ranked_.begin(), ranked_.end(), std::size_t{0});
  foundation::stableSort(ranked_.begin(), ranked_.end(), [&](std::size_t left, std::size_t right) {
    return labels_[left].rank > labels_[right].rank;
  });
  shown_.clear();
  hasTime_ = false;
  isChanging_ = !labels_.empty();
}

bool LabelPlacement::canPlace(const LabelFrame& frame) const {
  return frame.places.size() == labels_.size() && frame.view.width > 0 && frame.view.height > 0;
}

void LabelPlacement::update(const LabelFrame& frame) {
  if (!canPlace(frame)) return;
  const double elapsed = hasTime_ ? std::max(0.0, frame.time - time_) : 0.0;
  const MapMotion motion = follow(frame, elapsed);
  // Frame times are sums of fractions, so a tenth of a second may be slightly less.
  const bool isDue =
      !hasTime_ || frame.time < passTime_ || frame.time - passTime_ >= passInterval - 1e-6;
  if (isDue) {
    sort(frame);
    passTime_ = frame.time;
  }
  pass_->run(labels_, states_, order_, frame, motion,
             isDue ? LabelPassKind::all : LabelPassKind::shown);
  time_ = frame.time;
  hasTime_ = true;
  const bool isFading = fade(std::min(elapsed, longestStep));
  pass_->removeCovered(labels_, states_, frame);
  list();
  isChanging_ = isFading || isMoving_ || !isDue;
}

void LabelPlacement::placeAtOnce(const LabelFrame& frame) {
  if (!canPlace(frame)) return;
  states_.assign(labels_.size(), {});
  const MapMotion still = follow(frame, 0);
  sort(frame);
  pass_->run(labels_, states_, order_, frame, still, LabelPassKind::atOnce);
  fade(fadeTime);
  list();
  time_ = frame.time;
  passTime_ = frame.time;
  hasTime_ = true;
  isChanging_ = false;
}

// Sets the positions and scales of the labels, and returns how the map moves.
MapMotion LabelPlacement::follow(const LabelFrame& frame, double elapsed) {
  MapMotion motion;
  isMoving_ = false;
  const bool isKnown = elapsed > 0 && elapsed <= longestMotion;
  for (std::size_t i = 0; i < states_.size(); ++i) {
    const auto& [point, scale] = frame.places[i];
    LabelState& state = states_[i];
    state.growth = 0;
    const bool isSeen = isUsable(frame.places[i], frame.view);
    if (isSeen) isMoving_ = isMoving_ || !(point == state.point) || scale != state.pointsPerUnit;
    if (isSeen && isKnown && state.pointsPerUnit > 0) {
      state.growth = (scale / state.pointsPerUnit - 1) / elapsed;
      motion.add(point, {(point.x - state.point.x) / elapsed, (point.y - state.point.y) / elapsed});
    }
    state.point = point;
    state.pointsPerUnit = isSeen ? scale : 0;
  }
  motion.solve();
  return motion;
}

// Lists the parts that may be shown by importance, and hides the others. A shown part has priority
// over slightly more important ones; a new name of a shown symbol has not. Parts with and without
// this priority are already in order, so that merging them is enough.
void LabelPlacement::sort(const LabelFrame& frame) {
  preferred_.clear();
  others_.clear();
  for (const std::size_t i : ranked_) {
    LabelState& state = states_[i];
    const LabelScales scales = labels_[i].scales;
    const double ofName = labels_[i].room ? std::min(scales.name, scales.inside) : scales.name;
    const double least = std::min(scales.symbol, ofName) * (state.isShown() ? keepFactor : 1);
    if (isUsable(frame.places[i], frame.view) &&
        frame.places[i].pointsPerUnit * frame.unitsPerMeter >= least) {
      const auto add = [&](bool isPreferred, bool isName) {
        const double score = -labels_[i].rank - (isPreferred ? bonusOfShown : 0.0);
        (isPreferred ? preferred_ : others_).push_back({score, i, isName});
      };
      add(state.isShown(), false);
      add(state.name.isShown, true);
    } else {
      LabelPass::hide(state.symbol, frame.time);
      LabelPass::hide(state.name, frame.time);
    }
  }
  order_.clear();
  std::merge(preferred_.begin(), preferred_.end(), others_.begin(), others_.end(),
             std::back_inserter(order_), [](const LabelOrder& left, const LabelOrder& right) {
               return std::tie(left.score, left.index) < std::tie(right.score, right.index);
             });
}

bool LabelPlacement::fade(double elapsed) {
  bool isFading = false;
  for (LabelState& state : states_) {
    const bool isSymbolFading = fadePart(state.symbol, elapsed);
    isFading = fadePart(state.name, elapsed) || isSymbolFading || isFading;
  }
  return isFading;
}

void LabelPlacement::list() {
  shown_.clear();
  std::vector<bool> isListed(labels_.size());
  for (const LabelOrder& next : order_) {
    if (!isListed[next.index]) add(next.index);
    isListed[next.index] = true;
  }
  for (std::size_t i = 0; i < labels_.size(); ++i)
    if (!isListed[i]) add(i);
}

void LabelPlacement::add(std::size_t index) {
  const LabelState& state = states_[index];
  if (!(state.symbol.opacity > 0) && !(state.name.opacity > 0)) return;
  ShownLabel shown;
  shown.label = index;
  shown.symbolOpacity = state.symbol.opacity;
  shown.nameOpacity = state.name.opacity;
  shown.side = state.form.side;
  shown.lines = state.form.lines;
  shown.symbol = symbolRect(labels_[index], state.point);
  if (!labels_[index].names.empty()) shown.name = nameRect(labels_[index], state.form, state.point);
  shown.isSymbolLeaving = !state.symbol.isShown;
  shown.isNameLeaving = !state.name.isShown;
  shown_.push_back(shown);
}

}  // namespace orivanta
