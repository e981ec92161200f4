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
constexpr double tallHeight = 104;
constexpr double leastTallWidth = 94;
constexpr double tallIconSide = 32;
constexpr double flatHeight = 44;
constexpr double leastFlatWidth = 148;
constexpr double flatIconSide = 24;
constexpr double inset = 4;  // of texts
constexpr double iconGap = 6;
constexpr double detailHeight = 17;

double tileHeight(TileLook look) { return look == TileLook::tall ? tallHeight : flatHeight; }

LabelStyle titleStyle(TileLook look) {
  const bool isTall = look == TileLook::tall;
  return {.size = theme::smallSize,
          .bold = true,
          .alignment = isTall ? Alignment::center : Alignment::leading,
          .lines = 2};
}

std::shared_ptr<view::View> pictureOf(const TileContent& content) {
  if (content.sign.strokes.empty()) return std::make_shared<KindIconView>(content.kind);
  return std::make_shared<IconView>(content.sign, theme::paper);
}

}  // namespace

Tile::Tile(TileLook look, const TileContent& content)
    : look_(look),
      picture_(pictureOf(content)),
      isSign_(!content.sign.strokes.empty()),
      title_(std::make_shared<Label>(titleStyle(look), content.title)),
      detail_(std::make_shared<Label>(
          LabelStyle{
              .size = theme::smallSize, .color = theme::faint, .alignment = Alignment::center},
          content.detail)) {
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{picture_, title_, detail_})
    addSubview(part);
}

double Tile::titleHeight(double width) { return title_->fitting(width - 2 * inset).height; }

void Tile::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  if (marked_) {
    canvas.fill(bounds(), theme::accent, radius);
    canvas.fill({{ringWidth, ringWidth}, {size.width - 2 * ringWidth, size.height - 2 * ringWidth}},
                theme::accentTint, radius - ringWidth);
  } else {
    canvas.fill(bounds(), isPressed() ? theme::accentTint : theme::backdrop, radius);
  }
  look_ == TileLook::tall ? arrangeTall(canvas) : arrangeFlat(canvas);
}

// Centers the icon, the title and the detail together.
void Tile::arrangeTall(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  const double width = size.width - 2 * inset;
  const double own = title_->fitting(width).height;
  const double most = std::max(own, titleHeight_);
  const double detail = detail_->fitting(width).height;
  double top = std::max(inset, (size.height - tallIconSide - iconGap - most - detailHeight) / 2);
  placePicture(canvas, {{(size.width - tallIconSide) / 2, top}, {tallIconSide, tallIconSide}});
  top += tallIconSide + iconGap;
  title_->setFrame({{inset, top}, {width, own}});
  detail_->setFrame({{inset, top + own}, {width, detail}});
}

void Tile::arrangeFlat(view::Canvas& canvas) {
  constexpr double edgeGap = 10;
  const graphics::Size size = bounds().size;
  const double left = edgeGap + flatIconSide + 8;
  placePicture(canvas, directed(*this, {{edgeGap, (size.height - flatIconSide) / 2},
                                        {flatIconSide, flatIconSide}}));
  title_->setFrame(directed(*this, {{left, 0}, {size.width - left - 6, size.height}}));
}

// A sign is drawn on a disc.
void Tile::placePicture(view::Canvas& canvas, const graphics::Rect& frame) {
  picture_->setFrame(frame);
  if (!isSign_) return;
  constexpr double ring = 2;  // free space, as around the icons of kinds
  const double side = frame.size.width - 2 * ring;
  canvas.fill({{frame.minX() + ring, frame.minY() + ring}, {side, side}}, theme::accent, side / 2);
}

TileRow::TileRow(TileLook look, Tiles tiles, std::size_t columns,
                 std::shared_ptr<const std::size_t> marked)
    : Row(heightOf(look)), tiles_(std::move(tiles)), columns_(columns), marked_(std::move(marked)) {
  for (const auto& tile : tiles_) addSubview(tile);
  action = [this] {
    if (const auto& tile = tiles_[std::min(*marked_, tiles_.size() - 1)]; tile->action)
      tile->action();
  };
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
  double titleHeight = 0;
  for (const auto& tile : tiles_) titleHeight = std::max(titleHeight, tile->titleHeight(width));
  for (std::size_t i = 0; i < tiles_.size(); ++i) {
    tiles_[i]->setFrame(directed(*this, {{left, 0}, {width, size.height - gap}}));
    tiles_[i]->setTitleHeight(titleHeight);
    tiles_[i]->setMarked(isMarked() && i == std::min(*marked_, tiles_.size() - 1));
    left += width + gap;
  }
}

}  // namespace orivanta::viewer
