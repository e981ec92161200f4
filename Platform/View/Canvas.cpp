#include "Platform/View/Canvas.hpp"

namespace orivanta::view {

void Canvas::clip(const graphics::Rect&) {}

void Canvas::draw(const std::shared_ptr<graphics::Sheet>& sheet,
                  std::span<const SheetPiece> pieces) {
  if (!sheet) return;
  for (const SheetPiece& piece : pieces)
    if (const auto image = sheet->image(piece.place))
      draw(image, piece.rect, piece.alpha, piece.turn);
}

}  // namespace orivanta::view
