#include "Apps/Command/Render/LegendView.hpp"

#include <algorithm>

#include "Platform/Graphics/Text.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::command {

namespace {

constexpr double fontSize = 13;  // points
constexpr double lineHeight = 20;
constexpr double margin = 6;   // around the background
constexpr double padding = 8;  // around the lines
constexpr double swatch = 14;
constexpr double gap = 7;  // between a color and its meaning
constexpr graphics::Color ink{0.16F, 0.19F, 0.25F};
constexpr float groundAlpha = 0.9F;

}  // namespace

LegendView::LegendView(const std::vector<LegendEntry>& entries, double scale, const MapTheme* theme)
    : ground_(theme != nullptr ? theme->colors.halo : graphics::colors::white) {
  ground_.alpha = groundAlpha;
  setUserInteractionEnabled(false);
  graphics::TextStyle style;
  style.fontSize = fontSize;
  style.color = theme != nullptr ? theme->colors.text : ink;
  double widest = 0;
  for (const LegendEntry& entry : entries) {
    lines_.push_back({entry.color, graphics::makeTextImage(entry.meaning, style, scale)});
    if (const auto& text = lines_.back().text) widest = std::max(widest, text->size().width);
  }
  setFrame({{margin, margin},
            {2 * padding + swatch + gap + widest,
             2 * padding + lineHeight * static_cast<double>(lines_.size())}});
}

void LegendView::draw(view::Canvas& canvas) {
  canvas.fill(bounds(), ground_, 5);
  double middle = padding + lineHeight / 2;
  for (const Line& line : lines_) {
    canvas.fill({{padding, middle - swatch / 2}, {swatch, swatch}}, line.color, 3);
    if (line.text) {
      const graphics::Size size = line.text->size();
      canvas.draw(line.text, {{padding + swatch + gap, middle - size.height / 2}, size});
    }
    middle += lineHeight;
  }
}

}  // namespace orivanta::command
