#include "Apps/Viewer/Panels/PlaceRow.hpp"

#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

namespace {

constexpr double iconSide = 26;  // points
constexpr double iconGap = 12;

RowText indented(RowText text) {
  text.indent = iconSide + iconGap;
  return text;
}

}  // namespace

PlaceRow::PlaceRow(RowText text, PlaceKind kind)
    : Row(indented(std::move(text))), icon_(std::make_shared<KindIconView>(kind)) {
  addSubview(icon_);
}

void PlaceRow::draw(view::Canvas& canvas) {
  Row::draw(canvas);
  const double top = (bounds().size.height - iconSide) / 2;
  icon_->setFrame(directed(*this, {{theme::padding, top}, {iconSide, iconSide}}));
}

}  // namespace orivanta::viewer
