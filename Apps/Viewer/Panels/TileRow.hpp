// A row of a list that consists of tiles.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Panels/KindIconView.hpp"
#include "Apps/Viewer/Widgets/List.hpp"

namespace orivanta::viewer {

/// How a tile is laid out.
enum class TileLook {
  tall,  ///< the icon above the title and the detail
  flat   ///< the icon before the title; no detail
};

/// An icon with a title that can be tapped.
class Tile : public Pressable {
 public:
  Tile(TileLook look, PlaceKind kind, const std::string& title, const std::string& detail);

  const std::string& title() const { return title_->text(); }
  void setMarked(bool marked) { marked_ = marked; }
  void draw(view::Canvas& canvas) override;

 private:
  void arrangeTall();
  void arrangeFlat();

  const TileLook look_;
  std::shared_ptr<KindIconView> icon_;
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> detail_;
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

  /// Returns how many tiles fit into a width in points, at least two.
  static std::size_t columnsIn(TileLook look, double width);

  const Tiles& tiles() const { return tiles_; }
  void draw(view::Canvas& canvas) override;

 private:
  const Tiles tiles_;
  const std::size_t columns_;
  const std::shared_ptr<const std::size_t> marked_;
};

}  // namespace orivanta::viewer
