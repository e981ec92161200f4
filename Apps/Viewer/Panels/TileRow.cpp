#include "Apps/Viewer/Panels/TileRow.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double gap = 8;  // points; between tiles and below them
constexpr double edge = 12;
constexpr double radius = 12;
constexpr double ringWidth = 2;
constexpr double tallHeight = 100;
constexpr double leastTallWidth = 94;
constexpr double tallIconSide = 32;
constexpr double flatHeight = 44;
constexpr double leastFlatWidth = 148;
constexpr double flatIconSide = 24;

double tileHeight(TileLook look) { return look == TileLook::tall ? tallHeight : flatHeight; }

LabelStyle titleStyle(TileLook look) {
  const bool isTall = look == TileLook::tall;
  return {.size = theme::smallSize,
          .bold = true,
          .alignment = isTall ? Alignment::center : Alignment::leading,
          .lines = 2};
}

}  // namespace

Tile::Tile(TileLook look, PlaceKind kind, const std::string& title, const std::string& detail)
    : look_(look),
      icon_(std::make_shared<KindIconView>(kind)),
      title_(std::make_shared<Label>(titleStyle(look), title)),
      detail_(std::make_shared<Label>(
          LabelStyle{
              .size = theme::smallSize, .color = theme::faint, .alignment = Alignment::center},
          detail)) {
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{icon_, title_, detail_})
    addSubview(part);
}

void Tile::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  if (marked_) {
    canvas.fill(bounds(), theme::accent, radius);
    canvas.fill({{ringWidth, ringWidth}, {size.width - 2 * ringWidth, size.height - 2 * ringWidth}},
                theme::accentTint, radius - ringWidth);
  } else {
    canvas.fill(bounds(), isPressed() ? theme::accentTint : theme::backdrop, radius);
  }
  look_ == TileLook::tall ? arrangeTall() : arrangeFlat();
}

// Centers the icon, one or two lines of the title and the detail together.
void Tile::arrangeTall() {
  constexpr double inset = 4;
  const graphics::Size size = bounds().size;
  const double width = size.width - 2 * inset;
  const double titleHeight = title_->fitting(width).height;
  const double detailHeight = detail_->text().empty() ? 0 : detail_->fitting(width).height;
  double top = (size.height - tallIconSide - 6 - titleHeight - detailHeight) / 2;
  icon_->setFrame({{(size.width - tallIconSide) / 2, top}, {tallIconSide, tallIconSide}});
  top += tallIconSide + 6;
  title_->setFrame({{inset, top}, {width, titleHeight}});
  detail_->setFrame({{inset, top + titleHeight}, {width, detailHeight}});
}

void Tile::arrangeFlat() {
  constexpr double inset = 10;
  const graphics::Size size = bounds().size;
  const double left = inset + flatIconSide + 8;
  icon_->setFrame(
      directed(*this, {{inset, (size.height - flatIconSide) / 2}, {flatIconSide, flatIconSide}}));
  title_->setFrame(directed(*this, {{left, 0}, {size.width - left - 6, size.height}}));
}

TileRow::TileRow(TileLook look, Tiles tiles, std::size_t columns,
                 std::shared_ptr<const std::size_t> marked)
    : Row(heightOf(look)), tiles_(std::move(tiles)), columns_(columns), marked_(std::move(marked)) {
  for (const auto& tile : tiles_) addSubview(tile);
}

double TileRow::heightOf(TileLook look) { return tileHeight(look) + gap; }

std::size_t TileRow::columnsIn(TileLook look, double width) {
  const double least = look == TileLook::tall ? leastTallWidth : leastFlatWidth;
  return std::max<std::size_t>(
      2, static_cast<std::size_t>(std::max(0.0, (width - 2 * edge + gap) / (least + gap))));
}

void TileRow::draw(view::Canvas&) {
  const graphics::Size size = bounds().size;
  const auto columns = static_cast<double>(columns_);
  const double width = (size.width - 2 * edge - (columns - 1) * gap) / columns;
  double left = edge;
  for (std::size_t i = 0; i < tiles_.size(); ++i) {
    tiles_[i]->setFrame(directed(*this, {{left, 0}, {width, size.height - gap}}));
    tiles_[i]->setMarked(isMarked() && i == std::min(*marked_, tiles_.size() - 1));
    left += width + gap;
  }
}

}  // namespace orivanta::viewer
