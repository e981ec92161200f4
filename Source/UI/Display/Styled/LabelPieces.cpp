#include "Source/UI/Display/Styled/LabelPieces.hpp"

#include <algorithm>
#include <utility>

namespace orivanta {

using graphics::Rect;

namespace {

constexpr double appearanceTime = 0.2;  // seconds

}  // namespace

void LabelPieces::reset(std::size_t labelCount) {
  appearances_.assign(labelCount, {});
  visible_.clear();
}

void LabelPieces::collect(const LabelPlacement& placement, const FloorLabels& labels,
                          const Frame& frame) {
  std::vector<Appearance> former(appearances_.size());
  for (const std::size_t label : visible_) std::swap(former[label], appearances_[label]);
  visible_.clear();
  pieces_.clear();
  isFading_ = false;
  // The most important labels are drawn last, over those that fade out.
  for (auto shown = placement.shown().rbegin(); shown != placement.shown().rend(); ++shown) {
    appearances_[shown->label] = former[shown->label];
    add(*shown, placement.labels()[shown->label], labels.sources[shown->label], frame);
    visible_.push_back(shown->label);
  }
}

void LabelPieces::add(const ShownLabel& shown, const PlaceLabel& label, const LabelSource& source,
                      const Frame& frame) {
  Appearance& since = appearances_[shown.label];
  if (shown.symbolOpacity > 0) {
    LabelPicture picture;
    picture.form = source.isDot ? LabelPicture::Form::dot : LabelPicture::Form::icon;
    picture.size = label.symbolSize;
    picture.kind = source.kind;
    if (source.isClosed) picture.state = IconState::outOfOrder;
    addPiece(picture, shown.symbol, shown.symbolOpacity, since.symbol, frame);
  } else {
    since.symbol = -1;
  }
  if (shown.nameOpacity > 0) {
    LabelPicture picture;
    picture.text = joinedLines(source.names[shown.lines - 1]);
    picture.size = frame.theme.nameSize(label.rank);
    addPiece(picture, shown.name, shown.nameOpacity, since.name, frame);
  } else {
    since.name = -1;
  }
}

void LabelPieces::addPiece(const LabelPicture& picture, const Rect& rect, double opacity,
                           double& since, const Frame& frame) {
  const auto place = frame.isStill ? frame.pictures.findNow(picture) : frame.pictures.find(picture);
  if (!place) return;
  if (since < 0) since = frame.time;
  const double share =
      frame.isStill ? 1 : std::clamp((frame.time - since) / appearanceTime, 0.0, 1.0);
  isFading_ = isFading_ || share < 1;
  const graphics::Size size{place->width / frame.scale, place->height / frame.scale};
  pieces_.push_back({*place,
                     {{rect.midX() - size.width / 2, rect.midY() - size.height / 2}, size},
                     std::min(opacity, share)});
}

}  // namespace orivanta
