#include "Platform/Graphics/Drawing.hpp"

#include <cairo.h>

#include <cstdint>

#include "Platform/Graphics/DrawingPath.hpp"
#include "Platform/Graphics/Pango/CairoImage.hpp"

namespace orivanta::graphics {

namespace {

void addStep(const DrawingStep& step, cairo_t* context) {
  const auto& [a, b, c, d, e, f] = step.numbers;
  switch (step.kind) {
    case DrawingStep::Kind::moveTo:
      return cairo_move_to(context, a, b);
    case DrawingStep::Kind::lineTo:
      return cairo_line_to(context, a, b);
    case DrawingStep::Kind::curveTo:
      return cairo_curve_to(context, a, b, c, d, e, f);
    case DrawingStep::Kind::arc:
      return cairo_arc(context, a, b, c, d, e);
    case DrawingStep::Kind::begin:
      return cairo_new_sub_path(context);
    case DrawingStep::Kind::close:
      return cairo_close_path(context);
  }
}

bool draw(const DrawingPart& part, cairo_t* context) {
  const auto steps = readDrawingPath(part.path);
  if (!steps) return false;
  cairo_new_path(context);
  for (const DrawingStep& step : *steps) addStep(step, context);
  cairo_set_source_rgba(context, part.color.red, part.color.green, part.color.blue,
                        part.color.alpha);
  if (part.strokeWidth > 0.0) {
    cairo_set_line_width(context, part.strokeWidth);
    cairo_stroke(context);
  } else {
    cairo_fill(context);
  }
  return true;
}

}  // namespace

std::shared_ptr<const Image> makeDrawingImage(std::span<const DrawingPart> parts, double units,
                                              double points, double scale) {
  const auto side = drawingSide(units, points, scale);
  if (!side) return nullptr;
  const auto length = static_cast<int>(*side);
  const std::unique_ptr<cairo_surface_t, ReleaseCairo> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, length, length));
  const std::unique_ptr<cairo_t, ReleaseCairo> context(cairo_create(surface.get()));
  cairo_translate(context.get(), length / 2.0, length / 2.0);
  cairo_scale(context.get(), points * scale / units, points * scale / units);
  cairo_set_line_cap(context.get(), CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_fill_rule(context.get(), CAIRO_FILL_RULE_EVEN_ODD);
  cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_BEST);
  for (const DrawingPart& part : parts)
    if (!draw(part, context.get())) return nullptr;
  cairo_surface_flush(surface.get());
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  return Image::make(*side, *side, CairoPixels(surface.get()).straightRgba(0, 0, length, length),
                     scale);
}

}  // namespace orivanta::graphics
