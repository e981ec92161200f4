#include "Apps/Viewer/Panels/TileRow.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double gap = 8;  // points; between tiles and below them
constexpr double edge = 12;
constexpr double radius = 12;
constexpr double ringWidth = 2;
constexpr double tallHeight = 104;
constexpr double leastTallWidth = 94;
constexpr double flatHeight = 44;
constexpr double leastFlatWidth = 148;
constexpr double inset = 4;  // of texts
constexpr double iconGap = 6;
constexpr double detailHeight = 17;  // for the usual size of text
constexpr double flatEdge = 6;       // above the title of a flat tile, and below it
constexpr double flatGap = 10;
constexpr double flatTitleGap = 8;

double tallIconSide() { return theme::withIcons(32); }

double flatIconSide() { return theme::withIcons(24); }

double tileHeight(TileLook look) { return look == TileLook::tall ? tallHeight : flatHeight; }

LabelStyle titleStyle(TileLook look) {
  const bool isTall = look == TileLook::tall;
  return {.size = theme::smallSize,
          .bold = true,
          .alignment = isTall ? Alignment::center : Alignment::leading,
          .lines = 0};
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

double Tile::heightFor(double width) {
  if (look_ == TileLook::tall)
    return std::max(tallHeight, 2 * inset + tallIconSide() + iconGap + titleHeight(width) +
                                    theme::withText(detailHeight) + inset);
  const double title = std::max(1.0, width - 2 * flatGap - flatIconSide() - flatTitleGap);
  return std::max(flatHeight, title_->fitting(title).height + 2 * flatEdge);
}

double Tile::titleHeight(double width) { return title_->fitting(width - 2 * inset).height; }

void Tile::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  if (marked_) {
    canvas.fill(bounds(), theme::accent, radius);
    canvas.fill({{ringWidth, ringWidth}, {size.width - 2 * ringWidth, size.height - 2 * ringWidth}},
                theme::accentTint, radius - ringWidth);
  } else {
    drawControlGround(canvas, bounds(), isPressed(), radius);
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
  double top = std::max(
      inset, (size.height - tallIconSide() - iconGap - most - theme::withText(detailHeight)) / 2);
  placePicture(canvas,
               {{(size.width - tallIconSide()) / 2, top}, {tallIconSide(), tallIconSide()}});
  top += tallIconSide() + iconGap;
  title_->setFrame({{inset, top}, {width, own}});
  detail_->setFrame({{inset, top + own}, {width, detail}});
}

void Tile::arrangeFlat(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  const double left = flatGap + flatIconSide() + flatTitleGap;
  placePicture(canvas, directed(*this, {{flatGap, (size.height - flatIconSide()) / 2},
                                        {flatIconSide(), flatIconSide()}}));
  title_->setFrame(
      directed(*this, {{left, 0}, {std::max(1.0, size.width - left - flatGap), size.height}}));
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
  const double least = theme::withText(look == TileLook::tall ? leastTallWidth : leastFlatWidth);
  return std::max<std::size_t>(
      look == TileLook::tall ? 2 : 1,
      static_cast<std::size_t>(std::max(0.0, (width - 2 * edge + gap) / (least + gap))));
}

double TileRow::tileWidth(double width) const {
  const auto columns = static_cast<double>(columns_);
  return std::max(1.0, (width - 2 * edge - (columns - 1) * gap) / columns);
}

double TileRow::heightFor(double width) {
  double height = 0;
  for (const auto& tile : tiles_) height = std::max(height, tile->heightFor(tileWidth(width)));
  return height + gap;
}

void TileRow::draw(view::Canvas&) {
  const graphics::Size size = bounds().size;
  const double width = tileWidth(size.width);
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
