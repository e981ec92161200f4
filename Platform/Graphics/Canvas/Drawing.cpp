// Draws vector drawings on the page's 2D canvas.
#include "Platform/Graphics/Drawing.hpp"

#include <vector>

#include "Platform/Graphics/Canvas/PageFunctions.hpp"
#include "Platform/Graphics/DrawingPath.hpp"

namespace orivanta::graphics {

namespace {

// Appends the color, the width of the stroke, the number of steps, and for each step its kind and
// numbers, as web/src/platform/drawing.ts reads them.
bool pack(const DrawingPart& part, std::vector<double>& numbers) {
  const auto steps = readDrawingPath(part.path);
  if (!steps) return false;
  const auto& [red, green, blue, alpha] = part.color;
  const double width = part.strokeWidth > 0.0 ? part.strokeWidth : 0.0;
  numbers.insert(numbers.end(),
                 {red, green, blue, alpha, width, static_cast<double>(steps->size())});
  for (const DrawingStep& step : *steps) {
    numbers.push_back(static_cast<double>(step.kind));
    numbers.insert(numbers.end(), step.numbers.begin(), step.numbers.end());
  }
  return true;
}

}  // namespace

std::shared_ptr<const Image> makeDrawingImage(std::span<const DrawingPart> parts, double units,
                                              double points, double scale) {
  const auto side = drawingSide(units, points, scale);
  if (!side) return nullptr;
  std::vector<double> numbers;
  for (const DrawingPart& part : parts)
    if (!pack(part, numbers)) return nullptr;
  if (orivantaDrawPaths(numbers.data(), numbers.size(), *side, points * scale / units) == 0)
    return nullptr;
  return takeImage(*side, *side, scale);
}

}  // namespace orivanta::graphics
