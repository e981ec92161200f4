#include "Platform/Graphics/Text.hpp"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "Platform/Graphics/Pango/CairoImage.hpp"
#include "Platform/Graphics/Pango/TextLayout.hpp"
#include "Platform/Graphics/Pango/TextUse.hpp"
#include "Platform/Graphics/TextLimits.hpp"

namespace orivanta::graphics {

namespace {

void useColor(cairo_t* context, const Color& color) {
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
}

// The bounds of the ink in whole pixels.
struct Frame {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

class TextDrawing {
 public:
  TextDrawing(const std::string& text, const TextStyle& style, double scale)
      : style_(style), scale_(scale) {
    record_.reset(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, nullptr));
    const Owned<cairo_t> context(cairo_create(record_.get()));
    cairo_scale(context.get(), scale, scale);
    layout_.reset(pango_cairo_create_layout(context.get()));
    setText(*layout_, text, style, Image::maximumSide / scale - 2 * style.outlineWidth);
    draw(context.get());
  }

  // The ink bounds, with a margin for antialiasing.
  Frame roughFrame() const {
    double left = 0.0;
    double top = 0.0;
    double width = 0.0;
    double height = 0.0;
    cairo_recording_surface_ink_extents(record_.get(), &left, &top, &width, &height);
    if (!(width > 0.0) || !(height > 0.0)) return {};
    return {static_cast<int>(std::floor(left)) - 1, static_cast<int>(std::floor(top)) - 1,
            static_cast<int>(std::ceil(width)) + 3, static_cast<int>(std::ceil(height)) + 3};
  }

  // The height of all lines, in pixels.
  int linesHeight() const {
    int height = 0;
    pango_layout_get_size(layout_.get(), nullptr, &height);
    return static_cast<int>(std::ceil(scale_ * height / PANGO_SCALE));
  }

  // Draws the part inside the frame into a Cairo surface.
  Owned<cairo_surface_t> paint(const Frame& frame) const {
    Owned<cairo_surface_t> surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, frame.width, frame.height));
    const Owned<cairo_t> context(cairo_create(surface.get()));
    cairo_translate(context.get(), -frame.left, -frame.top);
    cairo_scale(context.get(), scale_, scale_);
    draw(context.get());
    cairo_surface_flush(surface.get());
    return surface;
  }

 private:
  void draw(cairo_t* context) const {
    if (style_.outlineWidth > 0.0) {
      pango_cairo_layout_path(context, layout_.get());
      cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
      cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
      cairo_set_line_width(context, 2 * style_.outlineWidth);
      useColor(context, style_.outlineColor);
      cairo_stroke(context);
      cairo_move_to(context, 0, 0);
    }
    useColor(context, style_.color);
    pango_cairo_show_layout(context, layout_.get());
  }

  const TextStyle& style_;
  double scale_;
  Owned<cairo_surface_t> record_;
  Owned<PangoLayout> layout_;
};

// Extends the frame to include the lines, which begin at 0.
Frame withLines(const Frame& frame, int height) {
  const int top = std::min(frame.top, 0);
  return {frame.left, top, frame.width, std::max(frame.top + frame.height, height) - top};
}

Frame inkOf(const CairoPixels& pixels, const Frame& frame) {
  int left = frame.width;
  int top = frame.height;
  int right = 0;
  int bottom = 0;
  for (int y = 0; y < frame.height; ++y)
    for (int x = 0; x < frame.width; ++x)
      if (pixels.at(x, y) >> 24U != 0) {
        left = std::min(left, x);
        right = std::max(right, x + 1);
        top = std::min(top, y);
        bottom = y + 1;
      }
  return {left, top, right - left, bottom - top};
}

}  // namespace

std::shared_ptr<const Image> makeTextImage(std::string_view text, const TextStyle& style,
                                           double scale) {
  const TextUse use;
  if (!use || !canDrawText(style, scale)) return nullptr;
  const TextDrawing drawing(presentable(text), style, scale);
  Frame frame = drawing.roughFrame();
  if (style.wholeLines && frame.width > 0) frame = withLines(frame, drawing.linesHeight());
  if (!Image::allows(static_cast<std::uint64_t>(frame.width),
                     static_cast<std::uint64_t>(frame.height)))
    return nullptr;
  const auto surface = drawing.paint(frame);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  const CairoPixels pixels(surface.get());
  Frame ink = inkOf(pixels, frame);
  if (ink.width <= 0) return nullptr;
  if (style.wholeLines) {
    const int top = std::min(ink.top, -frame.top);
    const int bottom = std::max(ink.top + ink.height, drawing.linesHeight() - frame.top);
    ink = {ink.left, top, ink.width, bottom - top};
  }
  return Image::make(static_cast<std::uint32_t>(ink.width), static_cast<std::uint32_t>(ink.height),
                     pixels.straightRgba(ink.left, ink.top, ink.width, ink.height), scale);
}

Size measureText(std::string_view text, const TextStyle& style) {
  const TextUse use;
  if (!use || !canDrawText(style, 1.0)) return {};
  const Owned<PangoContext> context(
      pango_font_map_create_context(pango_cairo_font_map_get_default()));
  const Owned<PangoLayout> layout(pango_layout_new(context.get()));
  setText(*layout, presentable(text), style, Image::maximumSide - 2 * style.outlineWidth);
  int width = 0;
  int height = 0;
  pango_layout_get_size(layout.get(), &width, &height);
  return {1.0 * width / PANGO_SCALE, 1.0 * height / PANGO_SCALE};
}

}  // namespace orivanta::graphics
