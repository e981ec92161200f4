// The division of a square into rectangles that are taken and freed in any order.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace orivanta::graphics {

/// A rectangle in whole pixels.
struct Cell {
  std::uint32_t x = 0;       ///< left edge
  std::uint32_t y = 0;       ///< upper edge
  std::uint32_t width = 0;   ///< pixels
  std::uint32_t height = 0;  ///< pixels

  friend bool operator==(const Cell&, const Cell&) = default;
};

/// Cells lie on shelves, whose heights are multiples of 4 pixels, with at least one unused pixel to
/// the right of and below each cell. Not thread-safe.
class SheetSpace {
 public:
  /// `side`: of the square, in pixels; rounded down to a multiple of 4.
  explicit SheetSpace(std::uint32_t side);

  /// Takes a cell. Returns nothing if no space is large enough, or if a side is 0.
  std::optional<Cell> take(std::uint32_t width, std::uint32_t height);

  /// Frees a cell that was taken.
  void free(const Cell& cell);

 private:
  // A free part of a shelf.
  struct Span {
    std::uint32_t x;
    std::uint32_t width;
  };

  // Shelves are adjacent and cover the square.
  struct Shelf {
    std::uint32_t y;
    std::uint32_t height;
    std::vector<Span> spans;  // from left to right; not adjacent
  };

  bool isEmpty(const Shelf& shelf) const;
  std::optional<std::size_t> shelfFor(std::uint32_t width, std::uint32_t height) const;
  void joinEmpty(std::size_t shelf);

  std::uint32_t side_;
  std::vector<Shelf> shelves_;  // from top to bottom
};

}  // namespace orivanta::graphics
