// A row of a list that consists of tiles.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Panels/KindIconView.hpp"
#include "Apps/Viewer/Widgets/Icon.hpp"
#include "Apps/Viewer/Widgets/List.hpp"

namespace orivanta::viewer {

/// How a tile is laid out.
enum class TileLook {
  tall,  ///< the icon above the title and the detail
  flat   ///< the icon before the title; no detail
};

/// What a tile shows.
struct TileContent {
  std::string title{};
  std::string detail{};               ///< below the title; may be empty
  PlaceKind kind = PlaceKind::other;  ///< whose icon is shown, unless there is a sign
  Icon sign{};                        ///< without strokes if there is none
};

/// An icon with a title that can be tapped.
class Tile : public Pressable {
 public:
  Tile(TileLook look, const TileContent& content);

  const std::string& title() const { return title_->text(); }

  /// Returns the height that the title needs in a tile of this width.
  double titleHeight(double width);

  /// Returns the height that the tile needs at this width.
  double heightFor(double width);

  /// Sets the height for the title, so that the icons of a row are in one line. Not for flat tiles.
  void setTitleHeight(double points) { titleHeight_ = points; }
  void setMarked(bool marked) { marked_ = marked; }
  void draw(view::Canvas& canvas) override;

 private:
  void arrangeTall(view::Canvas& canvas);
  void arrangeFlat(view::Canvas& canvas);
  void placePicture(view::Canvas& canvas, const graphics::Rect& frame);

  const TileLook look_;
  std::shared_ptr<view::View> picture_;
  const bool isSign_;
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> detail_;
  double titleHeight_ = 0;
  bool marked_ = false;
};

/// Tiles of equal width, from where lines of the interface begin.
class TileRow : public Row {
 public:
  using Tiles = std::vector<std::shared_ptr<Tile>>;

  /// There is room for `columns` tiles, of which the last ones may be missing. If the row is
  /// marked, the tile with the index `*marked` is, or else the last one.
  TileRow(TileLook look, Tiles tiles, std::size_t columns,
          std::shared_ptr<const std::size_t> marked);

  /// Returns the height in points of a row with such tiles.
  static double heightOf(TileLook look);

  double heightFor(double width) override;

  /// Returns how many tiles fit into a width in points: at least two, or one flat tile.
  static std::size_t columnsIn(TileLook look, double width);

  const Tiles& tiles() const { return tiles_; }
  void draw(view::Canvas& canvas) override;

 private:
  double tileWidth(double width) const;

  const Tiles tiles_;
  const std::size_t columns_;
  const std::shared_ptr<const std::size_t> marked_;
};

}  // namespace orivanta::viewer
