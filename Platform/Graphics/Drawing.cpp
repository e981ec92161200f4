#include "Platform/Graphics/Drawing.hpp"

#include <cairo.h>
#include <fast_float/fast_float.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <system_error>

#include "Platform/Graphics/CairoImage.hpp"

namespace orivanta::graphics {

namespace {

using std::numbers::pi;

// Adds the commands of a path to a Cairo context.
class PathReader {
 public:
  PathReader(std::string_view path, cairo_t& context) : rest_(path), context_(context) {}

  bool read() {
    while (skipBlanks()) {
      const char first = rest_.front();
      if (first >= 'A' && first <= 'Z') {
        command_ = first;
        rest_.remove_prefix(1);
        if (command_ == 'Z') cairo_close_path(&context_);
      } else if (!readGroup()) {
        return false;
      }
    }
    return true;
  }

 private:
  bool skipBlanks() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
    return !rest_.empty();
  }

  bool readNumbers(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      skipBlanks();
      const char* const end = rest_.data() + rest_.size();
      const auto result = fast_float::from_chars(rest_.data(), end, numbers_[i]);
      if (result.ec != std::errc() || !std::isfinite(numbers_[i])) return false;
      rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
    }
    return true;
  }

  // Reads the numbers of the current command.
  bool readGroup() {
    const auto& [a, b, c, d, e, f] = numbers_;
    switch (command_) {
      case 'M':
        if (!readNumbers(2)) return false;
        cairo_move_to(&context_, a, b);
        return true;
      case 'L':
        if (!readNumbers(2)) return false;
        cairo_line_to(&context_, a, b);
        return true;
      case 'C':
        if (!readNumbers(6)) return false;
        cairo_curve_to(&context_, a, b, c, d, e, f);
        return true;
      case 'O':
        if (!readNumbers(3)) return false;
        cairo_new_sub_path(&context_);
        cairo_arc(&context_, a, b, c, 0, 2 * pi);
        cairo_close_path(&context_);
        return true;
      case 'B':
        if (!readNumbers(5)) return false;
        addBox(a, b, c, d, e);
        return true;
      default:
        return false;
    }
  }

  void addBox(double left, double top, double right, double bottom, double radius) {
    cairo_new_sub_path(&context_);
    cairo_arc(&context_, right - radius, top + radius, radius, -pi / 2, 0);
    cairo_arc(&context_, right - radius, bottom - radius, radius, 0, pi / 2);
    cairo_arc(&context_, left + radius, bottom - radius, radius, pi / 2, pi);
    cairo_arc(&context_, left + radius, top + radius, radius, pi, 3 * pi / 2);
    cairo_close_path(&context_);
  }

  std::string_view rest_;
  cairo_t& context_;
  char command_ = ' ';
  std::array<double, 6> numbers_{};
};

bool draw(const DrawingPart& part, cairo_t& context) {
  cairo_new_path(&context);
  if (!PathReader(part.path, context).read()) return false;
  cairo_set_source_rgba(&context, part.color.red, part.color.green, part.color.blue,
                        part.color.alpha);
  if (part.strokeWidth > 0.0) {
    cairo_set_line_width(&context, part.strokeWidth);
    cairo_stroke(&context);
  } else {
    cairo_fill(&context);
  }
  return true;
}

}  // namespace

std::shared_ptr<const Image> makeDrawingImage(std::span<const DrawingPart> parts, double units,
                                              double points, double scale) {
  const double pixels = std::ceil(points * scale - 1e-9);
  if (!(units > 0.0) || !(scale > 0.0) || !(pixels >= 1.0) || pixels > Image::maximumSide)
    return nullptr;
  const auto side = static_cast<std::uint32_t>(pixels);
  if (!Image::allows(side, side)) return nullptr;
  const auto length = static_cast<int>(side);
  const std::unique_ptr<cairo_surface_t, ReleaseCairo> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, length, length));
  const std::unique_ptr<cairo_t, ReleaseCairo> context(cairo_create(surface.get()));
  cairo_translate(context.get(), pixels / 2, pixels / 2);
  cairo_scale(context.get(), points * scale / units, points * scale / units);
  cairo_set_line_cap(context.get(), CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_fill_rule(context.get(), CAIRO_FILL_RULE_EVEN_ODD);
  cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_BEST);
  for (const DrawingPart& part : parts)
    if (!draw(part, *context)) return nullptr;
  cairo_surface_flush(surface.get());
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  return Image::make(side, side, CairoPixels(surface.get()).straightRgba(0, 0, length, length),
                     scale);
}

}  // namespace orivanta::graphics
